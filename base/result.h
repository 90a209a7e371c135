// Result, the outcome of a function that can fail: a value, or the reason why there is none.
#pragma once

#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace base {

/// Why there is no value. Converts to a Result of any value whose reason can be made from this one.
template <typename Reason>
struct Failure {
    Reason reason;
};
template <typename Reason>
Failure(Reason) -> Failure<Reason>;

/// The value of a function that gives nothing else when it succeeds.
struct Done {};

/// Either a value or a reason. Reasons in words are fit for a message; a `Reason` of another type says more.
template <typename Value, typename Reason = std::wstring>
class [[nodiscard]] Result {
  public:
    Result(Value value) : value_(std::move(value)) {}
    template <typename Other>
    Result(Failure<Other> failure) : reason_(std::move(failure.reason)) {}
    /// A success without a value.
    template <typename Same = Value, std::enable_if_t<std::is_same_v<Same, Done>, int> = 0>
    Result() : value_(Done()) {}

    explicit operator bool() const { return value_.has_value(); }

    // The value; there must be one.
    Value& operator*() & { return *value_; }
    const Value& operator*() const& { return *value_; }
    Value&& operator*() && { return *std::move(value_); }
    Value* operator->() { return &*value_; }
    const Value* operator->() const { return &*value_; }

    /// Why there is no value; empty where there is one.
    const Reason& reason() const { return reason_; }

  private:
    std::optional<Value> value_;
    Reason reason_{};
};

/// Success without a value, or the reason of the failure.
template <typename Reason = std::wstring>
using Outcome = Result<Done, Reason>;

}  // namespace base
