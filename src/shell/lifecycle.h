#pragma once
// Ending the program, replaceable so that tests can watch for it.

#include <functional>

namespace quillon {

// Ends the process: leaves the event loop, whatever windows are open.
void EndProgram();
// Replaces what EndProgram does; an empty handler restores the real one.
void SetEndProgramHandler(std::function<void()> handler);

}  // namespace quillon
