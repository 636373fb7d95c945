// resource_manager_holder.cpp: the process-wide resource manager holder and its sinks.
#include "toolkit/dialogs/resource_manager_holder.h"

#include <algorithm>

#include "toolkit/dialogs/builtin_resources.h"

namespace qmk::toolkit {

std::unique_ptr<CExtResourceManager> CExtResourceManagerAutoPtr::MakeDefault() {
  auto manager = std::make_unique<CExtResourceManager>();
  manager->RegisterResourceModule(&BuiltinResources(), false);
  return manager;
}

CExtResourceManagerAutoPtr::CExtResourceManagerAutoPtr() : m_pManager(MakeDefault()) {}

void CExtResourceManagerAutoPtr::InstallResourceManager(
    std::unique_ptr<CExtResourceManager> manager) {
  m_pManager = manager ? std::move(manager) : MakeDefault();
  // A copy: a sink may remove itself while it is told.
  const std::vector<CExtResourceManagerSink*> sinks = m_arrSinks;
  for (CExtResourceManagerSink* sink : sinks) sink->OnResourceManagerInstalled(*m_pManager);
}

void CExtResourceManagerAutoPtr::SetLangIdDesired(uint16_t language) {
  m_pManager->SetLangIdDesired(language);
  const std::vector<CExtResourceManagerSink*> sinks = m_arrSinks;
  for (CExtResourceManagerSink* sink : sinks) sink->OnLanguageChanged(language);
}

bool CExtResourceManagerAutoPtr::AddSink(CExtResourceManagerSink* sink) {
  if (!sink || !sink->OnResourceManagerAttach(*this)) return false;
  if (std::find(m_arrSinks.begin(), m_arrSinks.end(), sink) == m_arrSinks.end())
    m_arrSinks.push_back(sink);
  return true;
}

bool CExtResourceManagerAutoPtr::RemoveSink(CExtResourceManagerSink* sink) {
  if (!sink) {
    m_arrSinks.clear();
    return true;
  }
  const auto it = std::find(m_arrSinks.begin(), m_arrSinks.end(), sink);
  if (it == m_arrSinks.end()) return false;
  m_arrSinks.erase(it);
  return true;
}

CExtResourceManagerAutoPtr& ResourceManager() {
  static CExtResourceManagerAutoPtr holder;
  return holder;
}

}  // namespace qmk::toolkit
