#include "surface/qt/widgets/LogView.h"

#include "surface/qt/bind/Follow.h"

#include <QScrollBar>

namespace halyard {

LogView::LogView() {
    setReadOnly(true);
    setUndoRedoEnabled(false); // what goes must not be kept
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto lettering = font();
    lettering.setFamilies({QStringLiteral("Tahoma"), lettering.family()});
    setFont(lettering);
}

bool LogView::Show(const std::string& text) {
    if (text == shown) return false;
    shown = text;
    setPlainText(Shown(text));
    ScrollToEnd();
    return true;
}

void LogView::Append(const std::string& added) {
    shown += added;
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    end.insertText(Shown(added));
    ScrollToEnd();
}

void LogView::ScrollToEnd() {
    moveCursor(QTextCursor::End);
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

} // namespace halyard
