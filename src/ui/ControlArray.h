#pragma once

#include "ui/Control.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvx::ui {

/// @throws basic::Error 340, naming the element
[[noreturn]] void RaiseNoElement(std::string_view arrayName, std::int32_t index);
std::string ElementName(std::string_view arrayName, std::int32_t index);  ///< "txtInfo(3)"
/// The array as a late-bound object: "Count", "LBound", "UBound", "Item"(i); the default property is Item.
basic::ObjectRef MakeArrayObject(std::string_view arrayName, const std::vector<Control*>& elements);

/// Controls of one name, told apart by their index; element i is "txtInfo(i)" on the form.
template <class T, std::int16_t N, std::int16_t First = 0>
class ControlArray {
public:
    ControlArray(Form& form, std::string_view name) : name_(name)
    {
        for (std::int16_t i = 0; i < N; ++i)
            elements_[static_cast<std::size_t>(i)] = std::make_unique<T>(form, ElementName(name, First + i));
    }

    const std::string& Name() const { return name_; }
    std::int16_t Count() const { return N; }
    std::int16_t LBound() const { return First; }
    std::int16_t UBound() const { return First + N - 1; }

    /// @throws basic::Error 340: no such element
    T& operator[](std::int32_t index) const
    {
        if (index < LBound() || index > UBound()) RaiseNoElement(name_, index);
        return *elements_[static_cast<std::size_t>(index - First)];
    }

    class Iterator {
    public:
        explicit Iterator(const std::unique_ptr<T>* at) : at_(at) {}
        T& operator*() const { return **at_; }
        Iterator& operator++()
        {
            ++at_;
            return *this;
        }
        bool operator==(const Iterator& other) const = default;

    private:
        const std::unique_ptr<T>* at_;
    };
    Iterator begin() const { return Iterator{elements_.data()}; }
    Iterator end() const { return Iterator{elements_.data() + N}; }

    basic::ObjectRef Object() const
    {
        std::vector<Control*> elements;
        for (const auto& element : elements_)
            elements.push_back(element.get());
        return MakeArrayObject(name_, elements);
    }

private:
    std::string name_;
    std::array<std::unique_ptr<T>, N> elements_;
};

}  // namespace kvx::ui
