#pragma once

#include "basic/Locale.h"

namespace kvx::basic {

/// Sets regional settings for one test and puts the former ones back.
class UseLocale {
public:
    explicit UseLocale(const Locale& locale) : former_(CurrentLocale()) { SetLocale(locale); }
    ~UseLocale() { SetLocale(former_); }
    UseLocale(const UseLocale&) = delete;
    UseLocale& operator=(const UseLocale&) = delete;

private:
    Locale former_;
};

} // namespace kvx::basic
