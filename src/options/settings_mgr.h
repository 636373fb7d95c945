// settings_mgr.h: CSettingsMgr, one open settings location (a key of the store, or a section of
// an INI file) with integer values kept as decimal text.
//
// An instance lives for the few lines that read or write; nothing is cached between instances,
// so every read sees what the last writer stored.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "options/qmk_registry.h"

namespace qmk::options {

enum SettingsStoreKind : int32_t {
  StoreKindGlobalIni = 1,   // the "Global" INI file; section = the section argument
  StoreKindNamedIni = 2,    // the INI file named by the key path
  StoreKindMakerKey = 3,    // per-user "Software\Quillmark" joined with the section
  StoreKindUserKey = 4,     // per-user key path joined with the section
  StoreKindMachineKey = 5,  // per-machine key path joined with the section
};

class CSettingsMgr {
 public:
  // Opens the location at once. A kind outside 1 to 5 names no location: the store is open,
  // reads give their defaults and writes fail.
  CSettingsMgr(int32_t kind, const std::string& section, const std::string& keyPath,
               bool readOnly);
  virtual ~CSettingsMgr();
  CSettingsMgr(const CSettingsMgr&) = delete;
  CSettingsMgr& operator=(const CSettingsMgr&) = delete;

  // The naming context `name` below the product key, read-only; a null or empty name opens the
  // sub-key "Settings". A missing key gives a closed store, whose reads give their defaults.
  static CSettingsMgr OpenContext(const char* name);
  // The same for writing, creating the key. Only a null name selects "Settings": an empty one
  // opens the product key itself.
  static CSettingsMgr OpenContextForWrite(const char* name);

  // The value's decimal text as a number; `defaultValue` when the store is closed or the value
  // is missing, unreadable, or an empty INI value.
  int32_t GetInt(const std::string& name, int32_t defaultValue) const;
  // Stores `value` as decimal text. False when closed, read-only, or the write failed.
  bool SetInt(const std::string& name, int32_t value);

  bool IsRegistryKind() const;

  bool m_bOpen = false;
  bool m_bReadOnly = false;
  std::unique_ptr<CQMKRegistry> m_pRegistry;
  int32_t m_nStoreKind = -1;
  std::string m_strSection;
  std::string m_strBaseKey;
  std::string m_strIniPath;
};

}  // namespace qmk::options
