#include "tests/surface_qt/ScreenScene.h"

namespace halyard {

ScreenScene::ScreenScene() {
    EXPECT_TRUE(network.Start());
    windows.Draw(bot);
    bot.Form_Load();
    windows.Show(bot.form);
    Settle();
}

void ScreenScene::Settle() {
    for (int turn = 0; turn < 3; ++turn) QApplication::processEvents();
}

QWidget* ScreenScene::Window(const char* name) {
    for (auto* window : QApplication::topLevelWidgets())
        if (window->objectName() == QLatin1String(name) && window->isVisible()) return window;
    return nullptr;
}

void ScreenScene::Press(const char* button, const char* window) {
    auto& found = Find<QAbstractButton>(button, window);
    EXPECT_TRUE(found.isVisible()) << button;
    // A check box is pressed on its mark: it may be wider than what can be pressed.
    const auto place = found.isCheckable() ? QPoint(8, found.height() / 2) : found.rect().center();
    QTest::mouseClick(&found, Qt::LeftButton, {}, place);
    Settle();
}

void ScreenScene::Type(const char* box, const char* text, const char* window) {
    auto& line = Find<QLineEdit>(box, window);
    line.setFocus();
    line.selectAll();
    QTest::keyClick(&line, Qt::Key_Delete);
    QTest::keyClicks(&line, text);
}

void ScreenScene::Enter(const char* box, const char* window) {
    QTest::keyClick(&Find<QLineEdit>(box, window), Qt::Key_Return);
    Settle();
}

void ScreenScene::ClickLine(const char* list, int row, Qt::MouseButton button, const char* window) {
    auto& view = Find<QListView>(list, window);
    Settle(); // lines that came are laid out late
    const auto place = view.visualRect(view.model()->index(row, 0)).center();
    QTest::mouseClick(view.viewport(), button, {}, place);
    Settle();
}

void ScreenScene::Choose(const char* entry, const char* window) {
    Find<QAction>(entry, window).trigger();
    Settle();
}

QString ScreenScene::Line(const char* list, int row, const char* window) {
    return Find<QListView>(list, window).model()->index(row, 0).data().toString();
}

void ScreenScene::SignOn() {
    Type("txtSN", "Harbour Bot");
    Type("txtPW", "secret");
    Press("cmdSignOn");
    Wait(5);
}

void ScreenScene::Join(const char* room) {
    Choose("mnuChatsPanel");
    Type("txtChat", room);
    Press("cmdJoinChat");
    Wait(5);
}

void ScreenScene::MakeOp(const char* name) {
    Choose("mnuOpImmPanel");
    Type("txtAddOp", name);
    Enter("txtAddOp");
    ClickLine("lstOps", 0);
    Press("cmdFullPerms");
}

void ScreenScene::OpenConsole() {
    Choose("mnuChatsPanel");
    ClickLine("lstChats", 0, Qt::RightButton);
    ASSERT_TRUE(Window("mnuChats"));
    Window("mnuChats")->close();
    Choose("mnuOpenConsole");
}

} // namespace halyard
