// Shows an empty window with the title that it is given: the program of somebody else, for tests that look
// for a window by its title.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QWidget window;
    window.setWindowTitle(QCoreApplication::arguments().value(1));
    window.show();
    return QApplication::exec();
}
