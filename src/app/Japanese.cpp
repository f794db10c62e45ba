#include "app/Japanese.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

class ToolkitTexts : public QTranslator {
public:
    using QTranslator::QTranslator;

    QString translate(const char *context, const char *text, const char *comment, int n) const override
    {
        const QString found = QTranslator::translate(context, text, comment, n);
        // These texts have moved within the toolkit, but not yet within its translation.
        if (found.isEmpty() && qstrcmp(context, "QAbstractFileIconProvider") == 0)
            return QTranslator::translate("QFileDialog", text, comment, n);
        return found;
    }
};

} // namespace

// The toolkit's dialogs ask for the system's locale, which it reads from the environment, once. The
// programs that we start later shall find the environment as it was.
void adoptJapaneseLocale()
{
    constexpr const char *variable = "LC_ALL";
    const bool wasSet = qEnvironmentVariableIsSet(variable);
    const QByteArray before = qgetenv(variable);
    qputenv(variable, "ja_JP.UTF-8");
    QLocale::setDefault(QLocale::system());
    if (wasSet)
        qputenv(variable, before);
    else
        qunsetenv(variable);
}

void installJapaneseTexts()
{
    auto *texts = new ToolkitTexts(QCoreApplication::instance());
    if (texts->load(u":/translations/qtbase_ja.qm"_s))
        QCoreApplication::installTranslator(texts);
}
