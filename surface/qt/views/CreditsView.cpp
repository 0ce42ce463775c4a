#include "surface/qt/FormWindow.h"
#include "surface/qt/bind/Bind.h"
#include "surface/qt/views/Lay.h"
#include "surface/qt/views/Windows.h"
#include "surface/windows/frmCredits.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>

namespace halyard {

namespace {

constexpr std::size_t FirstOfPeople = 3; // caption
constexpr std::size_t Sentence = 6;

using Values = std::initializer_list<Label*>;

QWidget* Group(Frame& frame, std::deque<Label>& captions, std::size_t first, Values values) {
    auto* group = BindGroup(frame);
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(16);
    for (int row = 0; auto* value : values) {
        auto& caption = captions[first + static_cast<std::size_t>(row)];
        auto* text = BindLabel(*value);
        text->setAccessibleDescription(Shown(caption.Caption()));
        grid->addWidget(BindLabel(caption), row, 0);
        grid->addWidget(text, row++, 1);
    }
    grid->setColumnStretch(1, 1);
    return group;
}

} // namespace

std::unique_ptr<FormWindow> DrawCredits(frmCredits& model) {
    auto window = std::make_unique<FormWindow>(model.form, [&model] { model.Form_Unload(); });
    auto* title = BindLabel(model.lblTitle);
    auto lettering = title->font();
    lettering.setBold(true);
    lettering.setPointSizeF(lettering.pointSizeF() * 1.5);
    title->setFont(lettering);
    title->setAlignment(Qt::AlignCenter);
    auto* about =
        Group(model.FrameAbout, model.lblMisc, 0, {&model.lblProgram, &model.lblCreator, &model.lblVersion});
    auto* credits = Group(model.FrameMain, model.lblMisc, FirstOfPeople,
                          {&model.lblTesters, &model.lblIdeas, &model.lblBugs});
    auto* sentence = BindLabel(model.lblMisc[Sentence]);
    auto* column = new QVBoxLayout(window.get());
    column->setSpacing(10);
    Put(*column, {title, about, credits, sentence,
                  Row({Room(), BindPressed(model.lblSite, Press::Link), Room()}), Room()});
    return window;
}

} // namespace halyard
