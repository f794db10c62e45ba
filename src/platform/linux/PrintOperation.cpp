#include "platform/PrintOperation.h"

#include <QCoreApplication>
#include <QMessageBox>

#include <dlfcn.h>

namespace {

using Make = PrintOperation *(*)(PrintedText &&, PrintInfo &&, QWidget *);

// Fonts, printers and all that is too much to load with every start.
Make printing()
{
    static const auto make = [] {
        void *module = dlopen(TARUMINE_PRINTING_MODULE, RTLD_NOW | RTLD_LOCAL);
        return module ? reinterpret_cast<Make>(dlsym(module, "makePrintOperation")) : nullptr;
    }();
    return make;
}

class NoPrinting : public PrintOperation {
    Q_DECLARE_TR_FUNCTIONS(PrintOperation)

public:
    using PrintOperation::PrintOperation;

    void runOperation(std::function<void(bool)> ended) override
    {
        auto *message = new QMessageBox(QMessageBox::Warning, QStringLiteral("Tarumine"),
                                        tr("印刷の機能を読み込めませんでした。"), QMessageBox::Ok,
                                        qobject_cast<QWidget *>(parent()));
        message->setAttribute(Qt::WA_DeleteOnClose);
        message->setWindowModality(Qt::WindowModal);
        connect(message, &QDialog::finished, this, [this, ended = std::move(ended)] {
            ended(false);
            deleteLater();
        });
        message->open();
    }
};

} // namespace

PrintOperation *newPrintOperation(PrintedText text, PrintInfo info, QWidget *window)
{
    if (const Make make = printing())
        return make(std::move(text), std::move(info), window);
    return new NoPrinting(std::move(text), std::move(info), window);
}
