#pragma once

#include "preferences/UserDefaults.h"

#include <QProperty>

#include <type_traits>

/// A field that is kept in the preferences store: reading gives what is stored under its key, or
/// `fallback` while the key is absent; writing stores at once. Views follow it like any State.
/// Integers (absent: 0) and strings.
template <class T> class AppStorage {
    static_assert(std::is_same_v<T, qint64> || std::is_same_v<T, QString>);

public:
    AppStorage(QLatin1StringView key, UserDefaults &store, T fallback = {})
        : m_key(key)
        , m_store(store)
        , m_fallback(std::move(fallback))
        , m_value(stored())
    {
        QObject::connect(&store, &UserDefaults::didChange, &m_context, [this] { m_value = stored(); });
    }
    Q_DISABLE_COPY_MOVE(AppStorage)

    T value() const { return m_value.value(); }
    operator T() const { return value(); }

    AppStorage &operator=(const T &value)
    {
        if constexpr (std::is_same_v<T, QString>)
            m_store.setString(value, m_key);
        else
            m_store.setInteger(value, m_key);
        return *this;
    }

private:
    T stored() const
    {
        if constexpr (std::is_same_v<T, QString>)
            return m_store.string(m_key).value_or(m_fallback);
        else
            return m_store.integer(m_key);
    }

    QLatin1StringView m_key;
    UserDefaults &m_store;
    T m_fallback;
    QProperty<T> m_value;
    QObject m_context; // ends the connection together with the field
};
