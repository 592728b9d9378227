// The words for a failure that nobody expected.
#pragma once

namespace pixora {

/// What the user reads when a handler could not go on, as when memory runs out. A plain array, because
/// whoever shows it may not be able to have any memory.
inline constexpr wchar_t kUnexpectedFailure[] = L"The operation could not be completed.";

}  // namespace pixora
