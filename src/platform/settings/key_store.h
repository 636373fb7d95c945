// key_store.h: a hierarchical store of named values under a per-user and a per-machine root.
//
// A key is a folder in a tree that mirrors the key path ("Software\Quillmark\..." keeps its
// backslashes as separators); its values live in one small text file in that folder. Key and
// value names are matched without regard to case. Writes go through UpdateFileLocked, so they
// are atomic and never lose another writer's value.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace qmk::platform {

enum class KeyRoot { kCurrentUser, kLocalMachine };

// Value types, numbered as hosts of the store know them.
constexpr uint32_t kValueString = 1, kValueBinary = 3, kValueDword = 4;

enum class QueryResult { kOk, kMissing, kMoreData, kFailed };

struct KeyValue {
  std::string name;
  uint32_t type = kValueString;
  std::string data;  // raw bytes; a string value's bytes end with its terminating zero
};

class KeyHandle {
 public:
  // Opens the key at `path` (backslash-separated, "" for the root itself) below `root`. With
  // `create`, missing keys on the way are made. Null when the key doesn't exist (and `create`
  // is false), when a level of the path is empty, or when the folders can't be made.
  static std::unique_ptr<KeyHandle> Open(KeyRoot root, const std::string& path, bool create);

  // Copies value `name`'s bytes into `data` when they fit in `limit` bytes; kMoreData (data
  // empty) when they don't.
  QueryResult Query(const std::string& name, std::string& data, size_t limit,
                    uint32_t* type = nullptr) const;
  // Stores `text` as a string value: its bytes and a terminating zero.
  bool SetString(const std::string& name, const std::string& text);
  bool SetValue(const std::string& name, uint32_t type, const std::string& data);
  bool DeleteValue(const std::string& name);

  std::vector<KeyValue> Values() const;
  std::vector<std::string> SubKeys() const;
  const std::string& folder() const { return folder_; }

 private:
  explicit KeyHandle(std::string folder) : folder_(std::move(folder)) {}
  bool Edit(const std::string& name, const KeyValue* replacement);
  std::string ValuesFile() const;

  std::string folder_;
};

// The folder of a root.
std::string KeyRootFolder(KeyRoot root);

// The values file's text form, one value a line: name, type and data, tab-separated, with
// bytes outside printable ASCII (and "\", tab) written as \xHH. Parsing skips lines it can't
// read, so a damaged line costs that value only.
std::vector<KeyValue> ParseKeyValues(const std::string& text);
std::string FormatKeyValues(const std::vector<KeyValue>& values);

// The folder name of one level of a key path: "/", "%" and a leading "." are escaped, so that
// any key name is a safe, distinct folder name.
std::string KeyFolderName(const std::string& level);
std::string KeyNameFromFolder(const std::string& folder_name);

}  // namespace qmk::platform
