// Tells whoever has connected that something happened. Everything on one thread.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace designspec {

// What keeps a listener connected: it is told no more once this is gone. It may outlive its
// signal.
class [[nodiscard]] Connection {
public:
    Connection() = default;
    explicit Connection(std::shared_ptr<const void> listener) : m_listener(std::move(listener)) {}
    Connection(Connection&&) noexcept = default;
    Connection& operator=(Connection&&) noexcept = default;

private:
    std::shared_ptr<const void> m_listener;
};

template <class... Args> class Signal {
public:
    using Function = std::function<void(Args...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    Connection Connect(Function function)
    {
        std::erase_if(m_listeners, [](const auto& listener) { return listener.expired(); });
        auto listener = std::make_shared<const Function>(std::move(function));
        m_listeners.emplace_back(listener);
        return Connection(std::move(listener));
    }

    bool IsConnected() const
    {
        return std::any_of(m_listeners.begin(), m_listeners.end(),
                           [](const auto& listener) { return !listener.expired(); });
    }

    // Calls the listeners in the order in which they connected. While they are told they may
    // connect, which counts from the next time on, disconnect themselves and others, which counts
    // at once, tell again, and destroy the signal.
    void Tell(Args... args) const
    {
        for (const auto& listener : std::vector(m_listeners)) {
            Function function;
            if (const auto connected = listener.lock()) function = *connected;
            if (function) function(args...);
        }
    }

private:
    std::vector<std::weak_ptr<const Function>> m_listeners;
};

} // namespace designspec
