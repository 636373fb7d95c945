// resource_manager_holder.h: CExtResourceManagerAutoPtr, the process-wide holder of the installed
// resource manager, and the sinks it tells about changes.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "toolkit/dialogs/resource_manager.h"

namespace qmk::toolkit {

class CExtResourceManagerAutoPtr;

// Something that wants to hear when the resource manager or its language changes (windows that
// reload their texts, caches of loaded resources).
class CExtResourceManagerSink {
 public:
  virtual ~CExtResourceManagerSink() = default;
  // Asked when the sink is added; false keeps it out of the list.
  virtual bool OnResourceManagerAttach(CExtResourceManagerAutoPtr& holder) {
    (void)holder;
    return true;
  }
  virtual void OnResourceManagerInstalled(CExtResourceManager& manager) { (void)manager; }
  virtual void OnLanguageChanged(uint16_t language) { (void)language; }
};

class CExtResourceManagerAutoPtr {
 public:
  // Starts with the default manager: no custom language, US English, the library's own module
  // registered.
  CExtResourceManagerAutoPtr();
  CExtResourceManagerAutoPtr(const CExtResourceManagerAutoPtr&) = delete;
  CExtResourceManagerAutoPtr& operator=(const CExtResourceManagerAutoPtr&) = delete;

  CExtResourceManager* operator->() const { return m_pManager.get(); }
  CExtResourceManager& Get() const { return *m_pManager; }

  // Replaces the manager (null installs a fresh default one) and tells the sinks.
  void InstallResourceManager(std::unique_ptr<CExtResourceManager> manager);
  // Sets the desired language of the installed manager and tells the sinks.
  void SetLangIdDesired(uint16_t language);

  // Refuses null and a sink that says no; a sink already listed stays listed once (true).
  bool AddSink(CExtResourceManagerSink* sink);
  // Removes one sink; a null sink clears the whole list. False when the sink was not listed.
  bool RemoveSink(CExtResourceManagerSink* sink);
  const std::vector<CExtResourceManagerSink*>& GetSinks() const { return m_arrSinks; }

 private:
  static std::unique_ptr<CExtResourceManager> MakeDefault();

  std::unique_ptr<CExtResourceManager> m_pManager;
  std::vector<CExtResourceManagerSink*> m_arrSinks;
};

// The holder of the process; every resource load of the library goes through it.
CExtResourceManagerAutoPtr& ResourceManager();

}  // namespace qmk::toolkit
