#include "printing/PrintOperation.h"

#include "platform/Module.h"
#include "view/Notice.h"

#include <QCoreApplication>

namespace {

using Make = PrintOperation *(*)(PrintedText &&, PrintInfo &&, QWidget *);

// Fonts, printers and all that is too much to load with every start.
Make printing()
{
    static const auto make =
        reinterpret_cast<Make>(Module::found(TARUMINE_PRINTING_MODULE, "makePrintOperation"));
    return make;
}

class NoPrinting : public PrintOperation {
    Q_DECLARE_TR_FUNCTIONS(PrintOperation)

public:
    using PrintOperation::PrintOperation;

    void runOperation(std::function<void(bool)> ended) override
    {
        const auto *notice =
            showNotice(QMessageBox::Warning, tr("印刷の機能を読み込めませんでした。"), {}, window());
        connect(notice, &QDialog::finished, this, [this, ended = std::move(ended)] {
            ended(false);
            deleteLater();
        });
    }
};

} // namespace

PrintOperation *newPrintOperation(PrintedText text, PrintInfo info, QWidget *window)
{
    if (const Make make = printing())
        return make(std::move(text), std::move(info), window);
    return new NoPrinting(std::move(text), std::move(info), window);
}
