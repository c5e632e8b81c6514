// The mark of a running copy, which the installers look for as well.
#pragma once

namespace ModMain {

/// Names the mutex that the first copy holds for as long as it runs.
inline constexpr wchar_t kRunningMutex[] = L"Local\\Keystride.Running";

}  // namespace ModMain
