// The least window of this toolkit with a button and a list.
#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    column->addWidget(new QPushButton(QStringLiteral("Rename")));
    auto* list = new QListWidget;
    for (int row = 0; row < 100; ++row) {
        list->addItem(QStringLiteral("Night Drive %1").arg(row));
    }
    column->addWidget(list);
    window.resize(800, 600);
    window.show();
    return QApplication::exec();
}
