#include "reading/HitMarks.h"

#include "document/PiecedDocument.h"
#include "reading/TextPane.h"

#include <QEvent>

#include <algorithm>

namespace {

// More of them in view are a grey mass, and take long to paint.
constexpr std::size_t mostMarks = 2000;

QTextCharFormat markFor(const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    QTextCharFormat format;
    format.setBackground(isDark ? QColor(0x6b, 0x55, 0x00) : QColor(0xff, 0xe0, 0x82));
    format.setForeground(isDark ? Qt::white : Qt::black);
    return format;
}

} // namespace

HitMarks::HitMarks(TextPane &pane)
    : QObject(&pane)
    , m_pane(pane)
{
    connect(&pane, &QPlainTextEdit::updateRequest, this, &HitMarks::markSoon);
    pane.installEventFilter(this);
}

bool HitMarks::eventFilter(QObject *pane, QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        markSoon();
    return QObject::eventFilter(pane, event);
}

void HitMarks::show(const TextPattern &pattern)
{
    m_pattern = pattern;
    mark();
}

// Not in the middle of what changes the view.
void HitMarks::markSoon()
{
    if (!m_pattern.isEmpty() && !std::exchange(m_isDue, true))
        QMetaObject::invokeMethod(this, &HitMarks::mark, Qt::QueuedConnection);
}

void HitMarks::mark()
{
    m_isDue = false;
    Places places = hitsInView();
    const qint64 palette = m_pane.palette().cacheKey();
    if (places == m_marked && palette == m_palette)
        return;
    m_marked = std::move(places);
    m_palette = palette;
    QList<QTextEdit::ExtraSelection> marks;
    for (const auto &[start, end] : m_marked) {
        QTextCursor hit(m_pane.document());
        hit.setPosition(start);
        hit.setPosition(end, QTextCursor::KeepAnchor);
        marks.append({hit, markFor(m_pane.palette())});
    }
    m_pane.setExtraSelections(marks);
}

HitMarks::Places HitMarks::hitsInView() const
{
    if (m_pattern.isEmpty())
        return {};
    const PiecedDocument &document = m_pane.piecedDocument();
    const int around = std::min(m_pattern.longestHit(), 2000);
    const QRect view = m_pane.viewport()->rect();
    const int first = m_pane.cursorForPosition(view.topLeft()).position() - around;
    const int last = m_pane.cursorForPosition(view.bottomRight()).position() + around;
    const TextStretch seen =
        document.stretch(std::max(0, first), std::min(document.characterCount() - 1, last));
    Places places;
    for (const auto &hit : m_pattern.hitsIn(seen.text())) {
        if (places.size() < mostMarks)
            places.emplace_back(seen.positionAt(hit.start), seen.positionBefore(hit.end));
    }
    return places;
}
