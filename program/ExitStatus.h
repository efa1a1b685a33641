#pragma once

namespace program {

/// The worse the higher.
enum class ExitStatus { Done = 0, Cancelled = 1, BadInput = 2, UnansweredPrompt = 3 };

}  // namespace program
