#pragma once

#include "pdf/PdfSettings.h"

#include <QByteArray>
#include <QString>

#include <optional>

class FileContent;

/// Work on bytes that come from elsewhere, each time done by a worker that has no rights. When that dies,
/// loops or takes too much, the work has failed, and nothing else. They take a while: for any other thread
/// than the user interface's.

/// The text of a file that isn't plain UTF-8, as `decodedText` finds it; by the bytes themselves where no
/// encoding is told.
std::optional<QString> textByWorker(const FileContent &file, const QByteArray &encoding = {});

/// As `writeTextPdf` does. The output is called here; `settings.hasRoom` isn't asked, since the worker has
/// its own limit.
PdfResult pdfByWorker(std::u16string_view text, const PdfSettings &settings, const PdfOutput &output,
                      PdfProgress &progress);

/// A picture of the format ARGB32, premultiplied; its rows follow each other. Empty for what is none.
struct SmallPicture {
    int width = 0, height = 0;
    QByteArray pixels;
};

/// The picture that a file holds, in a square of so many pixels; none for what needs other files, and what
/// takes long.
SmallPicture pictureByWorker(const QByteArray &file, int side);
