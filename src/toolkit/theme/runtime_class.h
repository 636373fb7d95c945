// runtime_class.h: the framework's object base and run-time class records, by which a theme is
// created from its class and asked what it derives from.
#pragma once

#include <string>

namespace qmk::toolkit::theme {

class CObject;

// One record per class: its name, its base's record and, for creatable classes, a maker.
struct CRuntimeClass {
  const char* m_lpszClassName;
  const CRuntimeClass* m_pBaseClass;
  CObject* (*m_pfnCreateObject)();

  // True for this class and every class below `base` in the tree.
  bool IsDerivedFrom(const CRuntimeClass* base) const;
  // A new object of the class, or null when the class can't be created.
  CObject* CreateObject() const;
};

// The framework object base: a virtual destructor and the run-time class.
class CObject {
 public:
  virtual ~CObject() = default;
  virtual const CRuntimeClass* GetRuntimeClass() const { return &classCObject; }
  bool IsKindOf(const CRuntimeClass* cls) const { return GetRuntimeClass()->IsDerivedFrom(cls); }

  static const CRuntimeClass classCObject;
};

}  // namespace qmk::toolkit::theme

// Declares a creatable class's record, its maker and its run-time class operation.
#define QMK_DECLARE_DYNCREATE(cls)                                   \
 public:                                                             \
  static const ::qmk::toolkit::theme::CRuntimeClass class##cls;      \
  static ::qmk::toolkit::theme::CObject* CreateObject();             \
  const ::qmk::toolkit::theme::CRuntimeClass* GetRuntimeClass() const override;

#define QMK_IMPLEMENT_DYNCREATE(cls, base)                                              \
  ::qmk::toolkit::theme::CObject* cls::CreateObject() { return new cls; }               \
  const ::qmk::toolkit::theme::CRuntimeClass cls::class##cls{#cls, &base::class##base,  \
                                                             &cls::CreateObject};       \
  const ::qmk::toolkit::theme::CRuntimeClass* cls::GetRuntimeClass() const { return &class##cls; }

#define QMK_RUNTIME_CLASS(cls) (&cls::class##cls)
