#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace kvx::ui {

/// What a control tells its form. Handlers run in the order in which they were connected; one that throws ends the
/// raising, and the error climbs to whoever raised the event.
template <class... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;

    void Connect(Handler handler) { handlers_.push_back(std::move(handler)); }
    bool HasHandlers() const { return !handlers_.empty(); }

    void Raise(Args... args) const
    {
        for (const Handler& handler : handlers_)
            handler(args...);
    }

private:
    std::vector<Handler> handlers_;
};

}  // namespace kvx::ui
