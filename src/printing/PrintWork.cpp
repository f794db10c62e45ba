#include "printing/PrintWork.h"

#include "platform/Memory.h"
#include "platform/WholeFile.h"
#include "printing/PrintQueue.h"
#include "printing/PrintServer.h"
#include "worker/Errands.h"

#include <QCoreApplication>
#include <QFile>

#include <cerrno>

namespace {

struct Reasons {
    Q_DECLARE_TR_FUNCTIONS(PrintWork)

public:
    static QString of(PdfResult result, int error = 0)
    {
        if (result == PdfResult::NoMemory)
            return tr("メモリが足りません。");
        if (result == PdfResult::NoFonts)
            return tr("この文章の文字を表せるフォントがありません。フォントをインストールしてください。");
        switch (error) {
        case 0:
            return tr("ページを作れませんでした。");
        case ENOSPC:
        case EDQUOT:
            return tr("空き容量が足りません。");
        case EFBIG:
            return tr("ファイルが大きすぎます。");
        case EACCES:
        case EPERM:
        case EROFS:
            return tr("そこに書き込むことは許可されていません。");
        case ENOENT:
        case ENOTDIR:
            return tr("保存先のフォルダがありません。");
        case EISDIR:
            return tr("その名前のフォルダがあります。");
        default:
            return qt_error_string(error);
        }
    }
};

PrintOutcome save(std::u16string_view text, const PdfSettings &settings, const QString &path,
                  PdfProgress &progress)
{
    WholeFile file(QFile::encodeName(path).toStdString());
    if (file.error() != 0)
        return {PdfResult::Failed, Reasons::of(PdfResult::Failed, file.error())};
    const auto output = [&](const char *bytes, std::size_t count) { return file.write(bytes, count); };
    const PdfResult result = pdfByWorker(text, settings, output, progress);
    if (result == PdfResult::Cancelled)
        return {result, {}};
    if (result == PdfResult::Written && !progress.cancelled && file.commit())
        return {result, {}};
    return {progress.cancelled ? PdfResult::Cancelled : PdfResult::Failed,
            Reasons::of(result, file.error())};
}

PrintOutcome spool(std::u16string_view text, const PdfSettings &settings, const PrintTarget &target,
                   PdfProgress &progress)
{
    if (!PrintServer::answers())
        return {PdfResult::Failed, Reasons::tr("印刷システムが応答しません。")};
    PrintQueue queue(target.queue.toStdString(), settings.title, target.options,
                     [&progress] { return !progress.cancelled; });
    const auto output = [&](const char *bytes, std::size_t count) { return queue.write(bytes, count); };
    const PdfResult result =
        queue.isOpen() ? pdfByWorker(text, settings, output, progress) : PdfResult::Failed;
    if (result == PdfResult::Written && queue.finish())
        return {result, {}};
    const QString reason = QString::fromStdString(queue.reason());
    queue.cancel();
    if (result == PdfResult::Cancelled || progress.cancelled)
        return {PdfResult::Cancelled, {}};
    return {PdfResult::Failed,
            reason.isEmpty() || result == PdfResult::NoFonts ? Reasons::of(result) : reason};
}

} // namespace

PrintOutcome print(const QString &text, const PdfSettings &settings, const PrintTarget &target,
                   PdfProgress &progress)
{
    const std::u16string_view view(reinterpret_cast<const char16_t *>(text.utf16()),
                                   std::size_t(text.size()));
    // About what a copy of the text takes, and its pages, compressed.
    constexpr qint64 copyAndPages = 3;
    if (!isThereRoomFor(copyAndPages * text.size()))
        return {PdfResult::Failed, Reasons::of(PdfResult::NoMemory)};
    return target.queue.isEmpty() ? save(view, settings, target.file, progress)
                                  : spool(view, settings, target, progress);
}
