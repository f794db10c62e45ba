#pragma once

#include <QObject>
#include <QProperty>

#include <functional>
#include <type_traits>
#include <utility>

// The state of a window and the one primitive that shows it.

/// A value that views follow. Writing an equal value notifies nobody.
/// Not thread-safe: workers hand plain values to the user-interface thread.
template <class T> using State = QProperty<T>;

/// A two-way connection to a value that lives elsewhere; what is bound must outlive the binding.
template <class T> struct Binding {
    std::function<T()> get;
    std::function<void(T)> set;

    Binding(std::function<T()> read, std::function<void(T)> write)
        : get(std::move(read))
        , set(std::move(write))
    {
    }
    // Implicit, so that a view that wants a binding can be handed the state itself.
    Binding(State<T> &state)
        : Binding([&state] { return state.value(); }, [&state](T value) { state = std::move(value); })
    {
    }
};

/// Calls `show` with the value of `expression` now, and again whenever a State that the expression
/// reads has changed it, for as long as `follower` lives. The states must outlive the follower.
template <class Expression, class Show> void follow(QObject *follower, Expression expression, Show show)
{
    using Value = std::decay_t<std::invoke_result_t<Expression &>>;
    // The subscription is a child of the follower, so it ends with it; a notifier in a local would
    // end at once. Members die in reverse order: the notifier before the value it listens to.
    struct Subscription : QObject {
        using QObject::QObject;
        QProperty<Value> value;
        QPropertyNotifier notifier;
    };
    auto *subscription = new Subscription(follower);
    subscription->value.setBinding(std::move(expression));
    subscription->notifier =
        subscription->value.addNotifier([subscription, show] { show(subscription->value.value()); });
    show(subscription->value.value());
}
