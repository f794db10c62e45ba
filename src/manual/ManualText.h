#pragma once

#include <QList>
#include <QString>

/// A part of the manual's source.
struct ManualBlock {
    enum class Kind { Title, Chapter, Section, Paragraph, Item, Picture };

    Kind kind = Kind::Paragraph;
    QString text; // of a picture: the name of its file
};

/// Reads the part of Markdown that the manual uses: headings of three levels, paragraphs, "- " items, and
/// pictures alone on their line. Emphasis and code are taken as plain text.
QList<ManualBlock> manualBlocks(const QString &source);
