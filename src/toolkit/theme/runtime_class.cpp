// runtime_class.cpp: walking the class tree and making objects from class records.
#include "toolkit/theme/runtime_class.h"

namespace qmk::toolkit::theme {

const CRuntimeClass CObject::classCObject{"CObject", nullptr, nullptr};

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
  if (!base) return false;
  for (const CRuntimeClass* c = this; c; c = c->m_pBaseClass)
    if (c == base) return true;
  return false;
}

CObject* CRuntimeClass::CreateObject() const {
  return m_pfnCreateObject ? m_pfnCreateObject() : nullptr;
}

}  // namespace qmk::toolkit::theme
