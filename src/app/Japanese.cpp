#include "app/Japanese.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QHash>
#include <QLocale>
#include <QTranslator>
#include <QWidget>

#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// Has a value in the environment for as long as it lives.
class PassingVariable {
public:
    PassingVariable(const char *name, const QByteArray &value)
        : m_name(name)
    {
        if (qEnvironmentVariableIsSet(name))
            m_before = qgetenv(name);
        qputenv(name, value);
    }
    ~PassingVariable()
    {
        if (m_before)
            qputenv(m_name, *m_before);
        else
            qunsetenv(m_name);
    }
    Q_DISABLE_COPY_MOVE(PassingVariable)

private:
    const char *m_name;
    std::optional<QByteArray> m_before;
};

// Read by the font library when it is first asked for a font: a Chinese character then gets its
// Japanese form.
std::optional<PassingVariable> fontLanguage;

class QtTexts : public QTranslator {
public:
    using QTranslator::QTranslator;

    QString translate(const char *context, const char *text, const char *comment, int n) const override
    {
        QString found = QTranslator::translate(context, text, comment, n);
        // These texts have moved within Qt, but not yet within its translation.
        if (found.isEmpty() && qstrcmp(context, "QAbstractFileIconProvider") == 0)
            return QTranslator::translate("QFileDialog", text, comment, n);
        return found.isEmpty() ? ofPrintDialog(text) : found;
    }

private:
    // And these aren't there at all.
    static QString ofPrintDialog(const char *text)
    {
        static const QHash<QByteArray, QString> texts{
            {"Pages", u"ページ指定"_s},
            {"Advanced", u"詳細"_s},
            {"Double Sided Printing", u"両面印刷"_s},
            {"Off", u"しない"_s},
            {"Long side binding", u"長辺綴じ"_s},
            {"Short side binding", u"短辺綴じ"_s},
        };
        return texts.value(QByteArray::fromRawData(text, qsizetype(qstrlen(text))));
    }
};

const QString emojiFamily = u"Noto Color Emoji"_s;

// A font is followed by the colour pictures for the emoji that it lacks: some of the fonts that would
// be asked first have a few emoji in black and white. The family is the one found, not the one asked
// for, lest the pictures' own blanks and digits come before it.
QFont withColourEmoji(QFont font)
{
    font.setFamilies({QFontInfo(font).family(), emojiFamily});
    return font;
}

bool isWithColourEmoji(const QFont &font)
{
    return font.families().contains(emojiFamily);
}

// What the desktop says, as it was when it was last taken over.
QFont &desktopFont()
{
    static QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    return font;
}

void chooseFonts()
{
    const QFont general = QApplication::font();
    if (isWithColourEmoji(general))
        return;
    std::vector<std::pair<const char *, QFont>> special; // what the desktop wants otherwise
    for (const char *kind : {"QMenu", "QMenuBar", "QMessageBox", "QToolButton", "QAbstractItemView"}) {
        if (QApplication::font(kind) != general)
            special.emplace_back(kind, QApplication::font(kind));
    }
    QApplication::setFont(withColourEmoji(general));
    for (const auto &[kind, font] : special)
        QApplication::setFont(withColourEmoji(font), kind);
}

} // namespace

void adoptJapaneseLocale()
{
    {
        // Qt's dialogs ask for the system's locale, which is read from there once.
        const PassingVariable locale("LC_ALL", "ja_JP.UTF-8");
        QLocale::setDefault(QLocale::system());
    }
    fontLanguage.emplace("FC_LANG", "ja");
}

void installJapaneseTexts()
{
    desktopFont();
    chooseFonts();
    fontLanguage.reset();

    auto *texts = new QtTexts(QCoreApplication::instance());
    if (texts->load(u":/translations/qtbase_ja.qm"_s))
        QCoreApplication::installTranslator(texts);
}

bool JapaneseApplication::event(QEvent *event)
{
    if (event->type() == QEvent::ApplicationFontChange) {
        chooseFonts();
        // Qt leaves them what they have; what isn't their own they now take from here.
        for (QWidget *window : topLevelWidgets())
            window->setFont(window->font());
    }
    return QApplication::event(event);
}

void adoptDesktopFont()
{
    const QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    if (font == std::exchange(desktopFont(), font))
        return;
    QApplication::setFont(font);
    chooseFonts();
}
