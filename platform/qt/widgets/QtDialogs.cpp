#include "platform/qt/widgets/QtDialogs.h"

#include "base/Latin1.h"

#include <QApplication>
#include <QFileDialog>
#include <QFontDialog>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace halyard {

namespace {

QString Shown(const std::string& text) { return QString::fromStdString(ToUtf8(text)); }

int Ask(const std::string& title, const std::string& text, QMessageBox::Icon icon,
        QMessageBox::StandardButtons buttons) {
    QMessageBox box(icon, Shown(title), Shown(text), buttons, QApplication::activeWindow());
    // Names in it come from strangers and must not be taken for markup.
    box.setTextFormat(Qt::PlainText);
    return box.exec();
}

/// "Text (*.txt)|*.txt|" to Qt's "Text (*.txt)"; a label without its pattern gets it.
QString Filter(const std::string& filter) {
    auto parts = Shown(filter).split('|');
    QStringList entries;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        auto pattern = parts[i + 1].replace(';', ' ');
        if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*"); // names without a dot too
        auto label = parts[i].contains('(') ? parts[i].left(parts[i].indexOf('(')).trimmed() : parts[i];
        entries += QStringLiteral("%1 (%2)").arg(label, pattern);
    }
    return entries.join(QStringLiteral(";;"));
}

/// What stands behind the dot of the filter's first pattern, in small letters.
QString Suffix(const std::string& filter) {
    const auto pattern = Shown(filter).section('|', 1, 1);
    const auto suffix = pattern.section('.', 1).toLower();
    return suffix == QLatin1String("*") ? QString() : suffix;
}

/// A path with characters that text inside cannot hold would name another file.
std::optional<std::string> Chosen(const QString& answer) {
    if (answer.isEmpty()) return std::nullopt;
    const auto path = answer.toStdString();
    auto text = FromUtf8(path);
    if (ToUtf8(text) == path) return text;
    Ask("Error", "Halyard can't use the name of this file or folder: it has characters outside Windows-1252.",
        QMessageBox::Warning, QMessageBox::Ok);
    return std::nullopt;
}

} // namespace

void QtDialogs::Note(const std::string& title, const std::string& text) {
    Ask(title, text, QMessageBox::NoIcon, QMessageBox::Ok);
}

void QtDialogs::Error(const std::string& title, const std::string& text) {
    Ask(title, text, QMessageBox::Warning, QMessageBox::Ok);
}

bool QtDialogs::YesNo(const std::string& title, const std::string& text) {
    return Ask(title, text, QMessageBox::Question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

std::optional<std::size_t> QtDialogs::Choose(const std::string& title, const std::string& text,
                                             const std::vector<std::string>& answers) {
    QMessageBox box(QMessageBox::Question, Shown(title), Shown(text), QMessageBox::NoButton,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    std::vector<QAbstractButton*> buttons;
    for (const auto& answer : answers)
        buttons.push_back(box.addButton(Shown(answer), QMessageBox::AcceptRole));
    box.setEscapeButton(box.addButton(QMessageBox::Cancel));
    box.exec();
    const auto chosen = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    if (chosen == buttons.end()) return std::nullopt;
    return static_cast<std::size_t>(chosen - buttons.begin());
}

std::optional<std::string> QtDialogs::Open(const std::string& title, const std::string& filter,
                                           const std::string& folder) {
    return Chosen(QFileDialog::getOpenFileName(QApplication::activeWindow(), Shown(title), Shown(folder),
                                               Filter(filter)));
}

std::optional<std::string> QtDialogs::Save(const std::string& title, const std::string& filter,
                                           const std::string& folder) {
    QFileDialog dialog(QApplication::activeWindow(), Shown(title), Shown(folder), Filter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(Suffix(filter));
    return Chosen(dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString());
}

std::optional<std::string> QtDialogs::Font(const std::string& title, const std::string& current) {
    bool accepted = false;
    auto font =
        QFontDialog::getFont(&accepted, QFont(Shown(current)), QApplication::activeWindow(), Shown(title));
    if (!accepted) return std::nullopt;
    return FromUtf8(font.family().toStdString());
}

} // namespace halyard
