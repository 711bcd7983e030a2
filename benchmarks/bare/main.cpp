// A Qt window with nothing in it, the baseline of the program's start.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    const QApplication app(argc, argv);
    QWidget window;
    window.setWindowTitle(QStringLiteral("bare window"));
    window.resize(1180, 740);
    window.show();
    return QApplication::exec();
}
