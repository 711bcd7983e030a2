// An empty Qt window, the baseline of the program's start; with the argument "field" a window with a single
// field and its blinking cursor, the baseline of the idle program.
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
