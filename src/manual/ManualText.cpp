#include "manual/ManualText.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString plain(QString text)
{
    static const QRegularExpression marks(u"\\*\\*|`"_s);
    return text.remove(marks).trimmed();
}

ManualBlock block(const QString &line)
{
    using enum ManualBlock::Kind;
    static const QRegularExpression picture(u"^!\\[[^\\]]*\\]\\(([^)]+)\\)$"_s);
    if (const auto match = picture.match(line); match.hasMatch())
        return {Picture, match.captured(1)};
    for (const auto &[mark, kind] :
         {std::pair{u"### "_s, Section}, {u"## "_s, Chapter}, {u"# "_s, Title}, {u"- "_s, Item}}) {
        if (line.startsWith(mark))
            return {kind, plain(line.mid(mark.size()))};
    }
    return {Paragraph, plain(line)};
}

} // namespace

QList<ManualBlock> manualBlocks(const QString &source)
{
    QList<ManualBlock> blocks;
    bool goesOn = false; // a paragraph or an item may have several lines
    for (const QString &line : source.split(u'\n')) {
        const QString text = line.trimmed();
        if (text.isEmpty()) {
            goesOn = false;
            continue;
        }
        const ManualBlock next = block(text);
        if (goesOn && next.kind == ManualBlock::Kind::Paragraph)
            blocks.last().text += next.text; // Japanese needs no blank there
        else
            blocks += next;
        goesOn = blocks.last().kind == ManualBlock::Kind::Paragraph
            || blocks.last().kind == ManualBlock::Kind::Item;
    }
    return blocks;
}
