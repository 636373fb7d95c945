// device_map.h: the COMn names of serial ports: a folder of symbolic links com1 ... comN to
// device paths, with built-in ports /dev/ttySk as COM(k+1) by default.
#pragma once

#include <set>
#include <string>

namespace qmk::platform::serial {

// $QMK_DEVICE_MAP, else ~/.config/quillmark/devices.
std::string DeviceMapFolder();

// The COM number of "COM7" or "\\.\COM12" (letters in any case); 0 for anything else. A name
// without the "\\.\" prefix names only COM1 to COM9, as on the system these names come from.
int ComNumberOf(const std::string& name);

// The device path behind a port name: a path beginning with '/' stands for itself, a COM name
// is looked up in the device map, then taken as a built-in port. Returns 0, or an errno value
// (ENOENT for a name that names no port).
int ResolvePortName(const std::string& name, std::string* path);

// The number the device map gives `device_path`, giving it the lowest free number from 3 up,
// and none of `taken`, when it has none yet. The map remembers it when the folder is writable;
// otherwise the number holds for this call only.
int RememberPort(const std::string& device_path, const std::set<int>& taken);

}  // namespace qmk::platform::serial
