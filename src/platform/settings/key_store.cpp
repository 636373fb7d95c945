// key_store.cpp: keys as folders, values as one escaped text file per key.
#include "platform/settings/key_store.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>

#include "platform/settings/atomic_file.h"
#include "platform/settings/paths.h"
#include "platform/files.h"
#include "platform/text.h"

namespace qmk::platform {
namespace {

constexpr char kValuesFile[] = ".values";
constexpr char kHeader[] = "# quillmark key values: name, type, data\n";

std::string Escape(const std::string& bytes) {
  std::string out;
  for (unsigned char c : bytes) {
    if (c >= 0x20 && c < 0x7F && c != '\\') {
      out += static_cast<char>(c);
    } else {
      out += "\\x" + HexByte(c);
    }
  }
  return out;
}

// Reverses Escape; false for a stray backslash or a bad hex pair.
bool Unescape(const std::string& text, std::string& out) {
  out.clear();
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      out += text[i];
      continue;
    }
    if (i + 3 >= text.size() || text[i + 1] != 'x') return false;
    const int hi = HexDigitValue(text[i + 2]), lo = HexDigitValue(text[i + 3]);
    if (hi < 0 || lo < 0) return false;
    out += static_cast<char>(hi * 16 + lo);
    i += 3;
  }
  return true;
}

// The sub-folder of `folder` that holds key level `level`, matched without regard to case.
std::string FindChild(const std::string& folder, const std::string& level) {
  const std::string exact = folder + "/" + KeyFolderName(level);
  if (IsFolder(exact)) return exact;
  DIR* dir = opendir(folder.c_str());
  if (!dir) return "";
  std::string found;
  while (const dirent* entry = readdir(dir)) {
    const std::string name = entry->d_name;
    if (name == "." || name == ".." || name == kValuesFile) continue;
    if (EqualsNoCase(KeyNameFromFolder(name), level) && IsFolder(folder + "/" + name)) {
      found = folder + "/" + name;
      break;
    }
  }
  closedir(dir);
  return found;
}

std::vector<std::string> SplitKeyPath(const std::string& path) {
  std::vector<std::string> levels;
  if (path.empty()) return levels;
  size_t start = 0;
  for (;;) {
    const size_t end = path.find('\\', start);
    levels.push_back(path.substr(start, end - start));
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return levels;
}

}  // namespace

std::string KeyRootFolder(KeyRoot root) {
  return root == KeyRoot::kCurrentUser ? UserKeyRootFolder() : MachineKeyRootFolder();
}

std::string KeyFolderName(const std::string& level) {
  std::string out;
  for (size_t i = 0; i < level.size(); ++i) {
    const char c = level[i];
    if (c == '/' || c == '%' || (c == '.' && i == 0)) {
      out += "%" + HexByte(static_cast<unsigned char>(c), true);
    } else {
      out += c;
    }
  }
  return out;
}

std::string KeyNameFromFolder(const std::string& folder_name) {
  std::string out;
  for (size_t i = 0; i < folder_name.size(); ++i) {
    if (folder_name[i] == '%' && i + 2 < folder_name.size()) {
      const int hi = HexDigitValue(folder_name[i + 1]), lo = HexDigitValue(folder_name[i + 2]);
      if (hi >= 0 && lo >= 0) {
        out += static_cast<char>(hi * 16 + lo);
        i += 2;
        continue;
      }
    }
    out += folder_name[i];
  }
  return out;
}

std::vector<KeyValue> ParseKeyValues(const std::string& text) {
  std::vector<KeyValue> values;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    const std::string line = text.substr(start, end - start);
    start = end + 1;
    if (line.empty() || line[0] == '#') continue;
    const size_t tab1 = line.find('\t');
    const size_t tab2 = tab1 == std::string::npos ? tab1 : line.find('\t', tab1 + 1);
    if (tab2 == std::string::npos) continue;
    KeyValue v;
    const std::string type = line.substr(tab1 + 1, tab2 - tab1 - 1);
    if (type.empty() || type.size() > 9 ||
        !std::all_of(type.begin(), type.end(), [](char c) { return c >= '0' && c <= '9'; }))
      continue;
    v.type = static_cast<uint32_t>(std::stoul(type));
    if (!Unescape(line.substr(0, tab1), v.name) || !Unescape(line.substr(tab2 + 1), v.data))
      continue;
    // A later line of the same name is a leftover; the first one stands.
    if (std::none_of(values.begin(), values.end(),
                     [&](const KeyValue& old) { return EqualsNoCase(old.name, v.name); }))
      values.push_back(std::move(v));
  }
  return values;
}

std::string FormatKeyValues(const std::vector<KeyValue>& values) {
  std::string text = kHeader;
  for (const KeyValue& v : values)
    text += Escape(v.name) + "\t" + std::to_string(v.type) + "\t" + Escape(v.data) + "\n";
  return text;
}

std::unique_ptr<KeyHandle> KeyHandle::Open(KeyRoot root, const std::string& path, bool create) {
  std::string folder = KeyRootFolder(root);
  if (create && !CreateFolders(folder)) return nullptr;
  if (!IsFolder(folder)) return nullptr;
  for (const std::string& level : SplitKeyPath(path)) {
    if (level.empty()) return nullptr;  // "a\\b" or a leading backslash names no key
    std::string child = FindChild(folder, level);
    if (child.empty()) {
      if (!create) return nullptr;
      child = folder + "/" + KeyFolderName(level);
      if (mkdir(child.c_str(), 0755) != 0 && errno != EEXIST) return nullptr;
    }
    folder = std::move(child);
  }
  return std::unique_ptr<KeyHandle>(new KeyHandle(folder));
}

std::string KeyHandle::ValuesFile() const { return folder_ + "/" + kValuesFile; }

std::vector<KeyValue> KeyHandle::Values() const {
  std::string text;
  if (ReadWholeFile(ValuesFile(), text) != ReadStatus::kOk) return {};
  return ParseKeyValues(text);
}

std::vector<std::string> KeyHandle::SubKeys() const {
  std::vector<std::string> keys;
  DIR* dir = opendir(folder_.c_str());
  if (!dir) return keys;
  while (const dirent* entry = readdir(dir)) {
    const std::string name = entry->d_name;
    // A key's folder never starts with "." (KeyFolderName escapes it); the store's own files do.
    if (name[0] != '.' && IsFolder(folder_ + "/" + name)) keys.push_back(KeyNameFromFolder(name));
  }
  closedir(dir);
  std::sort(keys.begin(), keys.end());
  return keys;
}

QueryResult KeyHandle::Query(const std::string& name, std::string& data, size_t limit,
                             uint32_t* type) const {
  data.clear();
  std::string text;
  const ReadStatus status = ReadWholeFile(ValuesFile(), text);
  if (status == ReadStatus::kMissing) return QueryResult::kMissing;
  if (status == ReadStatus::kFailed) return QueryResult::kFailed;
  for (KeyValue& v : ParseKeyValues(text)) {
    if (!EqualsNoCase(v.name, name)) continue;
    if (v.data.size() > limit) return QueryResult::kMoreData;
    if (type) *type = v.type;
    data = std::move(v.data);
    return QueryResult::kOk;
  }
  return QueryResult::kMissing;
}

bool KeyHandle::Edit(const std::string& name, const KeyValue* replacement) {
  return UpdateFileLocked(ValuesFile(), [&](std::string& text) {
    std::vector<KeyValue> values = ParseKeyValues(text);
    auto it = std::find_if(values.begin(), values.end(),
                           [&](const KeyValue& v) { return EqualsNoCase(v.name, name); });
    if (!replacement) {
      if (it == values.end()) return false;
      values.erase(it);
    } else if (it != values.end()) {
      it->type = replacement->type;  // the stored name keeps its spelling
      it->data = replacement->data;
    } else {
      values.push_back(*replacement);
    }
    text = FormatKeyValues(values);
    return true;
  });
}

bool KeyHandle::SetString(const std::string& name, const std::string& text) {
  return SetValue(name, kValueString, text + '\0');
}

bool KeyHandle::SetValue(const std::string& name, uint32_t type, const std::string& data) {
  KeyValue v{name, type, data};
  return Edit(name, &v);
}

bool KeyHandle::DeleteValue(const std::string& name) { return Edit(name, nullptr); }

}  // namespace qmk::platform
