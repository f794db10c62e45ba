#pragma once

#include <QString>

#include <string>

/// Names of files as text and back, whatever bytes they are made of. A byte that is no UTF-8 becomes a
/// lone surrogate, which no UTF-8 gives, so that each name keeps a text of its own.
namespace FileName {

QString text(const std::string &name);
std::string bytes(const QString &text);

} // namespace FileName
