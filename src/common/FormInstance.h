#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace kvx {

/// Gives back every form that a launcher left alive; hosts call it before they end, tests after each scenario.
void ReleaseForms();
/// Used by FormInstance only.
void AddFormRelease(std::function<void()> release);

/// The one instance of a form class on this thread. A launcher creates it where it is Nothing and releases it when the
/// dialog is over; an error in between leaves it behind for the next call.
template <class F>
class FormInstance {
public:
    /// The instance; made, with everything in its default state, when there is none.
    static std::shared_ptr<F> Get()
    {
        if (instance_ == nullptr) {
            instance_ = std::make_shared<F>();
            if (!std::exchange(registered_, true)) AddFormRelease([] { Release(); });
        }
        return instance_;
    }
    static bool Exists() { return instance_ != nullptr; }
    static void Release() { instance_.reset(); }

private:
    static inline thread_local std::shared_ptr<F> instance_;
    static inline thread_local bool registered_ = false;
};

}  // namespace kvx
