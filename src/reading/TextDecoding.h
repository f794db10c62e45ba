#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The text that the bytes of a file stand for: UTF-8, with or without its byte order mark, which is
/// no part of the text. Nothing unless every byte is accounted for.
std::optional<QString> decodedText(const QByteArray &bytes);
