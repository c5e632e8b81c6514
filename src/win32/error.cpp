// The program's errors and their texts.
#include "win32/error.h"

#include <limits>
#include <system_error>
#include <utility>

#include "win32/text.h"
#include "win32/windows_api.h"

namespace win32 {

namespace {

std::wstring SystemMessage(DWORD code) {
    wchar_t* text = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, code, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::wstring message(text == nullptr ? L"" : text, length);
    LocalFree(text);
    while (!message.empty() && message.back() <= L' ') message.pop_back();
    return message.empty() ? L"System error " + std::to_wstring(code) + L"." : message;
}

AppError FileError(std::wstring source, std::wstring_view path, const wchar_t* what, std::uint32_t systemError) {
    return {HRESULT_FROM_WIN32(systemError), std::move(source),
            L"File " + std::wstring(path) + what + SystemMessage(systemError)};
}

}  // namespace

AppError::AppError(std::int32_t number, std::wstring source, std::wstring description)
    : number_(number), source_(std::move(source)), description_(std::move(description)), what_(ToAnsi(description_)) {}

AppError OverflowError(std::wstring source) { return {kOverflowNumber, std::move(source), L"Overflow"}; }

AppError SubscriptError(std::wstring source) {
    return {kSubscriptNumber, std::move(source), L"Subscript out of range"};
}

std::int16_t ToInt16(std::int64_t value) {
    using Limits = std::numeric_limits<std::int16_t>;
    if (value < Limits::min() || value > Limits::max()) throw OverflowError(L"Keystride");
    return static_cast<std::int16_t>(value);
}

void ThrowLastError(const char* call) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), call);
}

AppError WriteError(std::wstring source, std::wstring_view path, std::uint32_t systemError) {
    return FileError(std::move(source), path, L" could not be written. ", systemError);
}

AppError ReadError(std::wstring source, std::wstring_view path, std::uint32_t systemError) {
    return FileError(std::move(source), path, L" could not be read. ", systemError);
}

std::wstring DescribeError(const std::exception& error) {
    if (const auto* appError = dynamic_cast<const AppError*>(&error)) return appError->Description();
    if (const auto* systemError = dynamic_cast<const std::system_error*>(&error))
        return SystemMessage(static_cast<DWORD>(systemError->code().value()));
    return FromAnsi(error.what());
}

void RunStep(const ErrorSink& report, const std::function<void()>& step) {
    try {
        step();
    } catch (const std::exception& error) {
        report(error);
    }
}

}  // namespace win32
