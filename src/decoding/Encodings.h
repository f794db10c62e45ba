#pragma once

#include <QByteArrayView>

#include <vector>

/// What is known of an encoding besides how to convert it, which is ICU's business. A new one is a row of
/// the table in Encodings.cpp, and nothing else.
struct Encoding {
    /// Where a text may be cut so that its parts can be decoded by themselves.
    enum class Cut {
        BeforeLowBytes, ///< a byte below 0x30 is a character of its own, whatever stands around it
        Nowhere,        ///< what a byte means may depend on all that went before
    };

    const char *name; ///< as ICU calls it
    /// How much likelier it is than others that read as well, in the measure of Plausibility.
    double headStart = 0;
    /// Of JIS X 0208, perhaps with a vendor's additions.
    bool isJapanese = false;
    Cut cut = Cut::BeforeLowBytes;
    /// The bytes of each file are a multiple of these.
    int unit = 1;
    /// What a file in it may begin with, and is no part of the text.
    QByteArrayView mark = {};
    /// A text in it is ASCII by its bytes, and holds one of these where it leaves ASCII.
    std::vector<QByteArrayView> escapes = {};
    /// What uchardet calls it when not by ICU's name.
    std::vector<QByteArrayView> otherNames = {};
    /// ICU's table has three control characters exchanged, as the hosts had from which it comes.
    bool exchangesControls = false;

    bool isWide() const { return unit > 1; }
    bool isNamed(QByteArrayView called) const;
    bool mayBeCut() const { return cut != Cut::Nowhere; }
};

/// All but UTF-8.
const std::vector<Encoding> &encodings();

/// The row of the table that ICU calls so; null where there is none.
const Encoding *encodingNamed(QByteArrayView name);

/// Whether a text may be cut before the byte, in an encoding that says so.
inline bool isCut(char byte)
{
    return uchar(byte) < 0x30;
}
