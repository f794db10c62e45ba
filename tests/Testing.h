#pragma once

#include "document/ReadingText.h"
#include "platform/Workers.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <tuple>

using namespace Qt::StringLiterals;

/// The cases of a test, for its data function: each has a name and the values that the test takes.
template <class... Values> void cases(std::initializer_list<std::tuple<const char *, Values...>> all)
{
    QTest::addColumn<std::tuple<Values...>>("values");
    const auto add = [](const char *name, const Values &...values) {
        QTest::newRow(name) << std::tuple<Values...>(values...);
    };
    for (const auto &one : all)
        std::apply(add, one);
}

/// The values of the case at hand, of the types that `cases` was given.
template <class... Values> std::tuple<Values...> values()
{
    using Tuple = std::tuple<Values...>;
    QFETCH(const Tuple, values);
    return values;
}

/// What a file of that picture holds.
inline QByteArray png(const QImage &image)
{
    QBuffer file;
    image.save(&file, "PNG");
    return file.data();
}

/// The first of several actions, buttons or the like whose text begins so.
template <class Item> Item *titled(const QString &title, const QList<Item *> &items)
{
    for (Item *item : items) {
        if (item->text().startsWith(title))
            return item;
    }
    qFatal("nothing is called %s", qPrintable(title));
}

/// The path of a file that now holds `content`.
inline QString written(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(content) != content.size())
        qFatal("can't write %s", qPrintable(path));
    return path;
}

/// Waits until those workers have done all that they were asked for, and this thread has heard of it.
inline void hearFrom(Workers &workers)
{
    QTRY_VERIFY(workers.isIdle());
    QCoreApplication::processEvents();
}

/// Waits until all of the text that is assigned is in its document.
inline void enter(ReadingText &text, const QString &assigned)
{
    QSignalSpy complete(&text, &ReadingText::complete);
    text.setValue(assigned);
    QVERIFY(!complete.isEmpty() || complete.wait(20'000));
}

/// What the file of that path holds: nothing where there is none.
inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// The processes that we have started and that haven't ended.
inline QStringList childProcesses()
{
    QStringList all;
    const QDir threads(u"/proc/self/task"_s);
    for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        all += QString::fromLatin1(contentOf(threads.filePath(thread + u"/children"_s)))
                   .split(u' ', Qt::SkipEmptyParts);
    return all;
}
