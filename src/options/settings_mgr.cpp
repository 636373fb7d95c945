// settings_mgr.cpp: opening a settings location and its integer reads and writes.
#include "options/settings_mgr.h"

#include "options/settings_paths.h"
#include "platform/settings/atomic_file.h"
#include "platform/settings/paths.h"
#include "platform/settings/profile_file.h"

namespace qmk::options {
namespace {

constexpr size_t kRegistryValueBytes = 100;
constexpr size_t kIniValueChars = 1024;

// Makes sure a writable INI file can be opened, creating it, and its folders when needed.
bool PrepareIniFile(const std::string& path) {
  if (platform::TouchFile(path)) return true;
  return platform::CreateFolders(platform::ParentFolder(path)) && platform::TouchFile(path);
}

}  // namespace

CSettingsMgr::CSettingsMgr(int32_t kind, const std::string& section, const std::string& keyPath,
                           bool readOnly) {
  m_pRegistry.reset();
  m_bOpen = false;
  m_strIniPath.clear();
  switch (kind) {
    case StoreKindGlobalIni: m_strIniPath = ResolveIniPath("Global"); break;
    case StoreKindNamedIni: m_strIniPath = ResolveIniPath(keyPath); break;
    case StoreKindMakerKey:
      m_pRegistry = std::make_unique<CQMKRegistry>(JoinKey(kMakerKey, section),
                                                   platform::KeyRoot::kCurrentUser, readOnly);
      break;
    case StoreKindUserKey:
    case StoreKindMachineKey:
      m_pRegistry = std::make_unique<CQMKRegistry>(
          JoinKey(keyPath, section),
          kind == StoreKindUserKey ? platform::KeyRoot::kCurrentUser
                                   : platform::KeyRoot::kLocalMachine,
          readOnly);
      break;
    default: break;
  }
  m_nStoreKind = kind;
  m_strSection = section;
  m_strBaseKey = keyPath;
  m_bReadOnly = readOnly;
  // A read-only INI store leaves the file system alone until it reads.
  if (!m_strIniPath.empty() && !readOnly && !PrepareIniFile(m_strIniPath)) return;
  if (m_pRegistry && !m_pRegistry->m_hKey) {
    m_pRegistry.reset();
    return;
  }
  m_bOpen = true;
}

CSettingsMgr::~CSettingsMgr() {
  m_pRegistry.reset();
  m_nStoreKind = -1;
  m_strSection.clear();
  m_strBaseKey.clear();
  m_strIniPath.clear();
}

CSettingsMgr CSettingsMgr::OpenContext(const char* name) {
  return CSettingsMgr(StoreKindUserKey, name && *name ? name : "Settings", kProductKey, true);
}

CSettingsMgr CSettingsMgr::OpenContextForWrite(const char* name) {
  return CSettingsMgr(StoreKindUserKey, name ? name : "Settings", kProductKey, false);
}

bool CSettingsMgr::IsRegistryKind() const {
  return m_nStoreKind == StoreKindMakerKey || m_nStoreKind == StoreKindUserKey ||
         m_nStoreKind == StoreKindMachineKey;
}

int32_t CSettingsMgr::GetInt(const std::string& name, int32_t defaultValue) const {
  if (!m_bOpen) return defaultValue;
  if (IsRegistryKind()) {
    if (!m_pRegistry || !m_pRegistry->m_hKey) return defaultValue;
    std::string bytes;
    if (m_pRegistry->m_hKey->Query(name, bytes, kRegistryValueBytes) != platform::QueryResult::kOk)
      return defaultValue;
    // The bytes are taken as text whatever the value's type says.
    return ParseDecimalSetting(bytes.substr(0, bytes.find('\0')));
  }
  if (m_strIniPath.empty()) return defaultValue;
  const std::string text = platform::ReadProfileString(
      m_strSection, name, std::to_string(defaultValue), m_strIniPath, kIniValueChars);
  return text.empty() ? defaultValue : ParseDecimalSetting(text);
}

bool CSettingsMgr::SetInt(const std::string& name, int32_t value) {
  if (!m_bOpen || m_bReadOnly) return false;
  const std::string text = std::to_string(value);
  if (!IsRegistryKind()) {
    return !m_strIniPath.empty() &&
           platform::WriteProfileString(m_strSection, name, text, m_strIniPath);
  }
  if (!m_pRegistry || m_pRegistry->m_bReadOnly || !m_pRegistry->m_hKey) return false;
  return m_pRegistry->m_hKey->SetString(name, text);
}

}  // namespace qmk::options
