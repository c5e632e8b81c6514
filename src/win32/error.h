// The program's errors: AppError with number, source and description, and the runtime errors that keep their numbers.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <string>
#include <string_view>

namespace win32 {

inline constexpr std::int32_t kOverflowNumber = 6;
inline constexpr std::int32_t kSubscriptNumber = 9;

/// An error that a command raises and the one error report shows: its description is the text of the box.
class AppError : public std::exception {
public:
    AppError(std::int32_t number, std::wstring source, std::wstring description);

    [[nodiscard]] std::int32_t Number() const { return number_; }
    [[nodiscard]] const std::wstring& Source() const { return source_; }
    [[nodiscard]] const std::wstring& Description() const { return description_; }
    [[nodiscard]] const char* what() const noexcept override { return what_.c_str(); }

private:
    std::int32_t number_;
    std::wstring source_;
    std::wstring description_;
    std::string what_;
};

/// Runtime error 6, "Overflow".
AppError OverflowError(std::wstring source);
/// Runtime error 9, "Subscript out of range".
AppError SubscriptError(std::wstring source);

/// Narrows to the program's 16-bit Integer; a value that does not fit raises error 6.
std::int16_t ToInt16(std::int64_t value);

/// Raises the failed system call as std::system_error, with the call's name for the developer.
[[noreturn]] void ThrowLastError(const char* call);

/// A file that the system would not let the program write: the description names the file and gives the system's
/// reason.
AppError WriteError(std::wstring source, std::wstring_view path, std::uint32_t systemError);

/// A file that is there but that the system would not let the program read, in the same form.
AppError ReadError(std::wstring source, std::wstring_view path, std::uint32_t systemError);

/// The text that the error report shows for an exception.
std::wstring DescribeError(const std::exception& error);

/// Receives errors of steps that stand alone.
using ErrorSink = std::function<void(const std::exception&)>;

/// Runs one step that stands alone: what it raises goes to `report`.
void RunStep(const ErrorSink& report, const std::function<void()>& step);

}  // namespace win32
