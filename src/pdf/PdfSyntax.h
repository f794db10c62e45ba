#pragma once

#include <string>
#include <string_view>

/// How things are written in a document.
namespace PdfSyntax {

/// With that many digits behind the point at most, six or fewer.
void appendNumber(std::string &to, double value, int digits = 3);
std::string number(double value, int digits = 3);

/// To where an object is.
std::string reference(int object);

/// `digits` of a number, in base 16.
void appendHex(std::string &to, unsigned value, int digits);

/// A text for people; it comes in UTF-8.
std::string text(std::string_view utf8);

/// A string of bytes.
std::string string(std::string_view bytes);

} // namespace PdfSyntax
