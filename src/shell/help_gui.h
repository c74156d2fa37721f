#pragma once
// The user guide shipped inside the program, in a window of its own.

namespace quillon {

enum class UserGuidePage { Contents, Search };

// Opens the guide at its contents, or with the search box ready for a word.
void ShowUserGuide(UserGuidePage page);

}  // namespace quillon
