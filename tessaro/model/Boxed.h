// An optional value kept on the heap.
//
// Records hold many sub-records that are usually absent; keeping them boxed
// keeps a record small while it still copies and compares as a value.
//
// The members that copy, destroy or compare the value are defined below the
// class, not inside it: they are then not inline, and the records' headers
// declare `extern template class boxed<R>` for every boxed record, so the
// whole record graph is compiled once (Records.cpp) instead of in every
// file that copies a level.
#pragma once

#include <memory>
#include <utility>

namespace tessaro {

template <class T>
class boxed {
public:
    using value_type = T;

    boxed() = default;
    boxed(const T& value);
    boxed(T&& value);
    boxed(const boxed& other);
    boxed(boxed&& other) noexcept;
    ~boxed();
    boxed& operator=(const boxed& other);
    boxed& operator=(boxed&& other) noexcept;
    boxed& operator=(const T& value);
    boxed& operator=(T&& value);

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
    void reset();

    /// The value, or a default-made one when absent.
    T value_or_default() const;

    bool operator==(const boxed& other) const;

private:
    std::unique_ptr<T> ptr_;
};

template <class T>
boxed<T>::boxed(const T& value) : ptr_(std::make_unique<T>(value))
{
}

template <class T>
boxed<T>::boxed(T&& value) : ptr_(std::make_unique<T>(std::move(value)))
{
}

template <class T>
boxed<T>::boxed(const boxed& other) : ptr_(other.ptr_ ? std::make_unique<T>(*other.ptr_) : nullptr)
{
}

template <class T>
boxed<T>::boxed(boxed&& other) noexcept : ptr_(std::move(other.ptr_))
{
}

template <class T>
boxed<T>::~boxed() = default;

template <class T>
boxed<T>& boxed<T>::operator=(const boxed& other)
{
    if (this != &other)
        ptr_ = other.ptr_ ? std::make_unique<T>(*other.ptr_) : nullptr;
    return *this;
}

template <class T>
boxed<T>& boxed<T>::operator=(boxed&& other) noexcept
{
    ptr_ = std::move(other.ptr_);
    return *this;
}

template <class T>
boxed<T>& boxed<T>::operator=(const T& value)
{
    ptr_ = std::make_unique<T>(value);
    return *this;
}

template <class T>
boxed<T>& boxed<T>::operator=(T&& value)
{
    ptr_ = std::make_unique<T>(std::move(value));
    return *this;
}

template <class T>
void boxed<T>::reset()
{
    ptr_.reset();
}

template <class T>
T boxed<T>::value_or_default() const
{
    return ptr_ ? *ptr_ : T{};
}

template <class T>
bool boxed<T>::operator==(const boxed& other) const
{
    if (has_value() != other.has_value())
        return false;
    return !has_value() || *ptr_ == *other.ptr_;
}

} // namespace tessaro
