// The least that a Qt window of this shape costs: a toolbar, a tree and an empty plain text edit.

#include <QApplication>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStandardItemModel>
#include <QToolBar>
#include <QTreeView>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(1000, 700);
    window.setWindowTitle(QStringLiteral("floor"));

    QToolBar *bar = window.addToolBar(QStringLiteral("bar"));
    for (const char *title : {"開く", "保存", "印刷", "設定", "終了"})
        bar->addAction(QString::fromUtf8(title));

    auto *tree = new QTreeView;
    auto *model = new QStandardItemModel(tree);
    for (int i = 0; i < 5; ++i) {
        auto *item = new QStandardItem(QStringLiteral("項目 %1").arg(i));
        for (int j = 0; j < 3; ++j)
            item->appendRow(new QStandardItem(QStringLiteral("子 %1").arg(j)));
        model->appendRow(item);
    }
    tree->setModel(model);

    auto *columns = new QSplitter;
    columns->addWidget(tree);
    columns->addWidget(new QPlainTextEdit);
    columns->setStretchFactor(1, 1);
    columns->setSizes({220, 780});
    window.setCentralWidget(columns);
    window.show();
    return QApplication::exec();
}
