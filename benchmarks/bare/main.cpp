// A Qt window with nothing in it, the baseline of the program's start; with the argument "field" one whose
// only control is a field with its blinking cursor, the baseline of a program that nobody uses.
#include <QApplication>
#include <QLineEdit>
#include <QWidget>

int main(int argc, char** argv)
{
    const QApplication app(argc, argv);
    QWidget window;
    window.setWindowTitle(QStringLiteral("bare window"));
    window.resize(1180, 740);
    QLineEdit field(&window);
    field.setVisible(argc > 1);
    field.setGeometry(20, 20, 200, 24);
    window.show();
    field.setFocus();
    return QApplication::exec();
}
