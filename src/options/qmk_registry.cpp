// qmk_registry.cpp: opening, creating and closing one key of the settings store.
#include "options/qmk_registry.h"

namespace qmk::options {

CQMKRegistry::CQMKRegistry(const std::string& keyName, platform::KeyRoot root, bool readOnly)
    : m_hRoot(root) {
  Open(keyName, readOnly);
}

CQMKRegistry::~CQMKRegistry() { Close(); }

bool CQMKRegistry::Open(const std::string& keyName, bool readOnly) {
  Close();
  m_strKeyName = keyName;
  m_bOwnsKey = 1;
  m_bReadOnly = readOnly ? 1 : 0;
  m_hKey = platform::KeyHandle::Open(m_hRoot, keyName, !readOnly);
  return m_hKey != nullptr;
}

void CQMKRegistry::Close() {
  // Every handle here is one that Open made, so closing it is always ours to do.
  m_hKey.reset();
}

}  // namespace qmk::options
