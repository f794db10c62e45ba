#pragma once

#include "platform/Background.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <functional>

/// Somebody who answers when asked, or doesn't: a folder on the other side of a network, say. Nobody waits
/// for the answer longer than a second; and as long as it is outstanding after that, nothing more is asked,
/// so that questions don't pile up. For one thread only.
class Respondent {
public:
    bool isSilent() const { return *m_isSilent; }

    /// Has `work` ask in the background, and hands the answer to `done` on this thread: `{}` after a second
    /// without any, or when there was none to the question before. An answer that comes later than that
    /// goes to `late`. Neither is called when `context` is gone.
    template <class Work, class Done>
    void ask(
        QObject *context, Work work, Done done,
        std::function<void(const std::invoke_result_t<Work> &)> late = [](const auto &) {})
    {
        using Answer = std::invoke_result_t<Work>;
        if (isSilent())
            return done(Answer());
        auto isWaiting = std::make_shared<bool>(true);
        QTimer::singleShot(patience, Qt::CoarseTimer, context, [isWaiting, isSilent = m_isSilent, done] {
            if (!std::exchange(*isWaiting, false))
                return;
            *isSilent = true;
            done(Answer());
        });
        // That somebody answers at last is worth knowing also when who asked is gone.
        const auto take = [isWaiting, isSilent = m_isSilent, asker = QPointer<QObject>(context), done,
                           late = std::move(late)](const Answer &answer) {
            *isSilent = false;
            const bool isInTime = std::exchange(*isWaiting, false);
            if (asker && isInTime)
                done(answer);
            else if (asker)
                late(answer);
        };
        inBackground(QCoreApplication::instance(), std::move(work), take, Workers::waiting());
    }

private:
    static constexpr std::chrono::milliseconds patience{900};

    std::shared_ptr<bool> m_isSilent = std::make_shared<bool>(false);
};
