// The least that a program with a window can be here: one button. What the operator's program costs is
// measured against it.

#include <QApplication>
#include <QPushButton>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QPushButton button(QStringLiteral("Press"));
    button.setWindowTitle(QStringLiteral("Smallest"));
    button.show();
    return QApplication::exec();
}
