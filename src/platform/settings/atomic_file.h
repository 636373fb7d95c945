// atomic_file.h: whole-file reads, and updates that a crash or a second writer can't damage.
//
// An update takes an exclusive advisory lock on the file's folder, reads the file, edits the
// text in memory, writes it to a temporary file in the same folder, flushes it to disk and
// renames it over the old one. A reader therefore sees the old or the new file, never a part;
// writers queue on the lock, so each edit starts from the previous writer's result.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace qmk::platform {

// Files above this size are refused, so a damaged or hostile file can't exhaust memory.
constexpr size_t kMaxSettingsFileBytes = 4u << 20;

enum class ReadStatus { kOk, kMissing, kFailed };

// Reads the whole file into `out`. kMissing when there is no such file; kFailed when it can't be
// read or exceeds kMaxSettingsFileBytes (out is then empty).
ReadStatus ReadWholeFile(const std::string& path, std::string& out);

// Replaces the file's contents by `edit` of them (empty text for a missing file), atomically and
// under the folder's lock. `edit` returns false to leave the file untouched. Returns false when
// the edit declined or anything failed; the file then holds what it held before.
bool UpdateFileLocked(const std::string& path, const std::function<bool(std::string&)>& edit);

// Creates the file empty when it doesn't exist, without touching one that does. True when the
// file exists and can be opened for reading and writing afterwards.
bool TouchFile(const std::string& path);

}  // namespace qmk::platform
