#pragma once

#include <QBuffer>
#include <QFile>
#include <QImage>
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

/// What the file of that path holds: nothing where there is none.
inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}
