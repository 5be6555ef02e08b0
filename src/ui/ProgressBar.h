#pragma once

#include "ui/ControlOf.h"

namespace kvx::ui {

/// How far a long job has come.
class ProgressBar final : public ControlOf<ProgressBar> {
public:
    ProgressBar(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "ProgressBar"; }
    static const basic::MemberTable<ProgressBar>& Members();

    float Min() const { return min_; }
    void SetMin(float min);  ///< @throws basic::Error 380: not below Max
    float Max() const { return max_; }
    void SetMax(float max);  ///< @throws basic::Error 380: not above Min
    float Value() const { return value_; }
    void SetValue(float value);  ///< @throws basic::Error 380: outside Min to Max

    bool TakesFocus() const override { return false; }
    void Reset() override;

private:
    float min_ = 0, max_ = 100, value_ = 0;
};

}  // namespace kvx::ui
