#include "document/ReadingText.h"

#include "decoding/LargeText.h"

#include <utility>

ReadingText::ReadingText()
{
    addVersion();
}

void ReadingText::addVersion()
{
    auto *version = m_versions.emplace_back(std::make_unique<TextVersion>()).get();
    connect(version, &TextVersion::complete, this, [this, version] {
        updateSteps();
        if (version == &shown())
            emit complete();
    });
    // Later, when it isn't busy any more.
    connect(
        version, &TextVersion::failed, this, [this, version] { takeBack(version); }, Qt::QueuedConnection);
    connect(version, &TextVersion::edited, this, &ReadingText::noteEdit);
    for (const auto changed : {&QTextDocument::undoAvailable, &QTextDocument::redoAvailable})
        connect(&version->document(), changed, this, &ReadingText::updateSteps);
}

bool ReadingText::assign(const IncomingText &text)
{
    if (!text.hasRoom())
        return false;
    ++m_assignments;
    emit leaving();
    forgetLater();
    if (!shown().isUntouched()) {
        shown().setShown(false);
        addVersion();
        ++m_shown;
        forgetOldest();
    }
    shown().start(text);
    updateSteps();
    emit assigned();
    return true;
}

void ReadingText::takeBack(const TextVersion *failed)
{
    if (failed == &shown() && m_shown > 0) {
        show(m_shown - 1);
        forgetLater();
        updateSteps();
    } else if (failed == &shown()) {
        shown().start({});
    }
}

void ReadingText::forgetLater()
{
    m_versions.resize(m_shown + 1);
}

// The one before is kept whatever its size, some others as long as all of them together aren't large.
void ReadingText::forgetOldest()
{
    constexpr std::size_t mostSteps = 20;
    qsizetype kept = 0;
    std::size_t first = m_shown - 1;
    while (first > 0 && m_shown - first < mostSteps
           && kept + m_versions[first - 1]->size() <= LargeText::charactersToCollect)
        kept += m_versions[--first]->size();
    m_versions.erase(m_versions.begin(), m_versions.begin() + std::ptrdiff_t(first));
    m_shown -= first;
}

void ReadingText::show(std::size_t version)
{
    emit leaving();
    shown().setShown(false);
    m_shown = version;
    shown().setShown(true);
    ++m_assignments;
    updateSteps();
    emit returned();
}

void ReadingText::undo()
{
    m_isStepping = true;
    if (document().isUndoAvailable())
        document().undo();
    else if (m_shown > 0)
        show(m_shown - 1);
    m_isStepping = false;
}

void ReadingText::redo()
{
    m_isStepping = true;
    if (document().isRedoAvailable())
        document().redo();
    else if (m_shown + 1 < m_versions.size())
        show(m_shown + 1);
    m_isStepping = false;
}

// What is edited after a step back can't be followed by what came after it then.
void ReadingText::noteEdit()
{
    if (!m_isStepping && m_shown + 1 < m_versions.size()) {
        forgetLater();
        updateSteps();
    }
    emit edited();
}

void ReadingText::updateSteps()
{
    m_canUndo = document().isUndoAvailable() || m_shown > 0;
    m_canRedo = document().isRedoAvailable() || m_shown + 1 < m_versions.size();
}
