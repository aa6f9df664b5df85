// An optional value kept on the heap.
//
// Records hold many sub-records that are usually absent; keeping them boxed
// keeps a record small while it still copies and compares as a value.
#pragma once

#include <memory>
#include <utility>

namespace tessaro {

template <class T>
class boxed {
public:
    using value_type = T;

    boxed() = default;
    boxed(const T& value) : ptr_(std::make_unique<T>(value)) {}
    boxed(T&& value) : ptr_(std::make_unique<T>(std::move(value))) {}
    boxed(const boxed& other) : ptr_(other.ptr_ ? std::make_unique<T>(*other.ptr_) : nullptr) {}
    boxed(boxed&&) noexcept = default;
    boxed& operator=(const boxed& other)
    {
        if (this != &other)
            ptr_ = other.ptr_ ? std::make_unique<T>(*other.ptr_) : nullptr;
        return *this;
    }
    boxed& operator=(boxed&&) noexcept = default;
    boxed& operator=(const T& value) { return *this = boxed(value); }
    boxed& operator=(T&& value) { return *this = boxed(std::move(value)); }

    bool has_value() const { return ptr_ != nullptr; }
    explicit operator bool() const { return has_value(); }

    T& operator*() { return *ptr_; }
    const T& operator*() const { return *ptr_; }
    T* operator->() { return ptr_.get(); }
    const T* operator->() const { return ptr_.get(); }

    template <class... Args>
    T& emplace(Args&&... args)
    {
        ptr_ = std::make_unique<T>(std::forward<Args>(args)...);
        return *ptr_;
    }
    void reset() { ptr_.reset(); }

    /// The value, or a default-made one when absent.
    T value_or_default() const { return ptr_ ? *ptr_ : T{}; }

    friend bool operator==(const boxed& a, const boxed& b)
    {
        if (a.has_value() != b.has_value())
            return false;
        return !a.has_value() || *a == *b;
    }

private:
    std::unique_ptr<T> ptr_;
};

} // namespace tessaro
