// Owning wrappers: UniqueHandle for system handles, ComPtr for COM references.
#pragma once

#include <utility>

namespace win32 {

/// Owns one handle of type Handle and releases it with Release; a null handle owns nothing.
template <typename Handle, auto Release>
class UniqueHandle {
public:
    UniqueHandle() = default;
    explicit UniqueHandle(Handle handle) : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, Handle{})) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        if (this != &other) Reset(std::exchange(other.handle_, Handle{}));
        return *this;
    }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    ~UniqueHandle() { Reset(); }

    [[nodiscard]] Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != Handle{}; }

    void Reset(Handle handle = Handle{}) {
        if (handle_ != Handle{}) Release(handle_);
        handle_ = handle;
    }

private:
    Handle handle_{};
};

/// Owns one reference to a COM object.
template <typename Interface>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr&& other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    ~ComPtr() {
        if (pointer_ != nullptr) pointer_->Release();
    }

    Interface* operator->() const { return pointer_; }
    [[nodiscard]] Interface* Get() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }

    /// The address to hand to a call that returns a new reference; only for an empty pointer.
    Interface** Put() { return &pointer_; }

    /// Asks for another interface of the object by its identifier; empty when it has none.
    template <typename Other, typename Identifier>
    [[nodiscard]] ComPtr<Other> As(const Identifier& identifier) const {
        ComPtr<Other> other;
        void* result = nullptr;
        if (pointer_ != nullptr && pointer_->QueryInterface(identifier, &result) >= 0)
            *other.Put() = static_cast<Other*>(result);
        return other;
    }

private:
    Interface* pointer_ = nullptr;
};

}  // namespace win32
