#pragma once
// The start of the program.

namespace quillon {

// The program: starts it and runs its event loop; the process's exit code.
int Main();

// The start up to the splash: refuses a second copy, notes the surroundings and
// shows frmBanner6. False when another copy is running; nothing has then been
// read or written.
bool StartProgram();

// Registers the forms of the whole program with the form registry, and makes
// the program's resources available.
void RegisterProgramForms();

}  // namespace quillon
