// qmk_registry.h: CQMKRegistry, the owner of one open key of the settings store.
#pragma once

#include <memory>
#include <string>

#include "platform/settings/key_store.h"

namespace qmk::options {

class CQMKRegistry {
 public:
  // Records the root, then opens `keyName` as Open does.
  CQMKRegistry(const std::string& keyName, platform::KeyRoot root, bool readOnly);
  virtual ~CQMKRegistry();
  CQMKRegistry(const CQMKRegistry&) = delete;
  CQMKRegistry& operator=(const CQMKRegistry&) = delete;

  // Closes any key held, then opens `keyName`: read-only, only an existing key; writable, the
  // key is created when missing. Returns whether a key is open.
  bool Open(const std::string& keyName, bool readOnly);
  void Close();

  std::string m_strKeyName;
  std::unique_ptr<platform::KeyHandle> m_hKey;  // null when no key is open
  unsigned char m_bOwnsKey = 0;
  unsigned char m_bReadOnly = 1;  // writes through this key are refused
  platform::KeyRoot m_hRoot = platform::KeyRoot::kCurrentUser;
};

}  // namespace qmk::options
