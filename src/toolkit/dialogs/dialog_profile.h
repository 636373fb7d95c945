// dialog_profile.h: the small settings store of dialogs (window placements, remembered message
// box answers): a profile file whose path a host or a test may change.
#pragma once

#include <string>

namespace qmk::toolkit {

// $XDG_CONFIG_HOME/quillmark/dialogs.ini, else ~/.config/quillmark/dialogs.ini, unless set.
std::string DialogProfilePath();
// An empty path restores the default.
void SetDialogProfilePath(const std::string& path);

std::string ReadDialogProfileString(const std::string& section, const std::string& key,
                                    const std::string& fallback);
bool WriteDialogProfileString(const std::string& section, const std::string& key,
                              const std::string& value);
// The value as a whole decimal number, else `fallback`.
int ReadDialogProfileInt(const std::string& section, const std::string& key, int fallback);

}  // namespace qmk::toolkit
