#pragma once

#include "platform/FileStamp.h"
#include "preferences/IniText.h"

#include <chrono>
#include <functional>
#include <optional>

/// The file of a store, which any process may replace. It is written beside, and then put in its place as a
/// whole. What can't be parsed is moved aside, and the store starts empty.
class StoreFile {
public:
    explicit StoreFile(const QString &name);

    const QString &name() const { return m_name; }
    const IniText &text() const { return m_text; }

    /// Takes over what is in the file now. False when that is what was there before, or no text of ours:
    /// somebody may be in the midst of writing it.
    bool refresh();

    /// Changes the text and the file, whatever others wrote into it meanwhile. False when that can't be
    /// done, for one because another process is about to do it for longer than `patience`.
    bool change(const std::function<void(IniText &)> &change, std::chrono::milliseconds patience);

private:
    std::optional<QByteArray> read();
    std::optional<IniText> latest();
    bool write(const QByteArray &bytes) const;

    QString m_name;
    FileStamp m_stamp;
    QByteArray m_bytes; // of the text
    IniText m_text;
};
