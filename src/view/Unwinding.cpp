#include "view/Unwinding.h"

#include <QDialog>
#include <QPointer>
#include <QThread>
#include <QTimer>

using namespace std::chrono_literals;

namespace {

// Called for nothing when somebody else has deleted it by then.
void deleteSoon(QObject *object, std::chrono::milliseconds later)
{
    QTimer::singleShot(later, object, [object] {
        constexpr int ownLoop = 1; // the application's
        if (QThread::currentThread()->loopLevel() > ownLoop)
            deleteSoon(object, 50ms);
        else
            delete object;
    });
}

} // namespace

void deleteWhenUnwound(QObject *object)
{
    deleteSoon(object, 0ms);
}

void cancelDialogs(QWidget *window)
{
    QList<QPointer<QDialog>> open;
    for (QDialog *dialog : window->findChildren<QDialog *>())
        open.prepend(dialog);
    for (const QPointer<QDialog> &dialog : std::as_const(open)) {
        if (dialog && dialog->isVisible())
            dialog->reject();
    }
}
