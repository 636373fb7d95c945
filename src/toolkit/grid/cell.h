// cell.h: CExtGridCell, the base of every grid cell (look flags, compare, assign, clone,
// archive form), its run-time classes, and CExtGridCellStringDM.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/archive.h"
#include "platform/variant/variant.h"
#include "toolkit/grid/alloc.h"

namespace qmk::toolkit::grid {

using platform::Archive;
using platform::Variant;

class CExtGridCell;
class CExtGridDataProvider;

// A cell class known at run time: its name (the archive form of providers names cells by it),
// its size (what the allocator is asked for) and a constructor into given memory.
struct CellClass {
  const char* name;
  size_t size;
  const CellClass* base;
  CExtGridCell* (*construct)(void* memory);

  bool IsDerivedFrom(const CellClass* other) const;
  // A new cell from `alloc`, or from the heap when `alloc` is null; null when memory runs out.
  CExtGridCell* CreateObject(IMalloc* alloc) const;
};

// The class of `name`, or null for a name no cell class has.
const CellClass* FindCellClass(const std::string& name);
// Every cell class an archive may name, in a fixed order.
std::span<const CellClass* const> CellClasses();

// Frees a cell the way a provider does: reset, destroy, give the memory back. A null `alloc`
// means the cell came from the heap.
void DestroyCell(CExtGridCell* cell, IMalloc* alloc);

#define QMK_GRID_CELL_CLASS(Class)                                       \
 public:                                                                 \
  static const CellClass kClass;                                         \
  const CellClass* GetRuntimeClass() const override { return &kClass; } \
                                                                         \
 private:

#define QMK_GRID_CELL_CLASS_IMPL(Class, Base) \
  const CellClass Class::kClass{#Class, sizeof(Class), &Base::kClass, [](void* m) -> CExtGridCell* { return new (m) Class(); }};

// Style bits with a meaning of their own.
constexpr uint32_t kStyleDefault = 0x40000000;
constexpr uint32_t kStyleNoAutoAlign = 0x3;
constexpr uint32_t kStyleUpDownMask = 0x30;
constexpr uint32_t kStyleNoIncrement = 0x20000000;
constexpr uint32_t kStyleExEmpty = 0x80;
constexpr uint32_t kStyleExReadOnly = 0x8;
constexpr uint32_t kStyleExDisabled = 0x100000;

// Alignment reported by GetAlignment.
enum class HorzAlign { kDefault, kLeft, kCenter, kRight };
enum class VertAlign { kDefault, kTop, kCenter, kBottom };

class CExtGridCell {
 public:
  static const CellClass kClass;
  CExtGridCell() = default;
  CExtGridCell(const CExtGridCell&) = delete;
  CExtGridCell& operator=(const CExtGridCell&) = delete;
  virtual ~CExtGridCell() = default;

  virtual const CellClass* GetRuntimeClass() const { return &kClass; }
  bool IsKindOf(const CellClass* c) const { return GetRuntimeClass()->IsDerivedFrom(c); }
  // The five words of the base, then what subclasses add. False when the archive failed.
  virtual bool Serialize(Archive& ar);

  virtual uint32_t GetStyle() const { return m_dwStyle; }
  virtual uint32_t ModifyStyle(uint32_t add, uint32_t remove = 0);
  virtual uint32_t GetStyleEx() const { return m_dwStyleEx; }
  virtual uint32_t ModifyStyleEx(uint32_t add, uint32_t remove = 0);
  virtual void SetItemData(uint32_t data) { m_dwData = data; }
  virtual uint32_t GetItemData() const { return m_dwData; }
  virtual void SetOwner(CExtGridDataProvider* owner) { m_pOwner = owner; }
  virtual CExtGridDataProvider* GetOwner() const { return m_pOwner; }
  virtual bool IsReadOnly() const { return (m_dwStyleEx & kStyleExReadOnly) != 0; }
  virtual bool IsDisabled() const { return (m_dwStyleEx & kStyleExDisabled) != 0; }
  virtual bool IsEmpty() const { return (m_dwStyleEx & kStyleExEmpty) != 0; }
  virtual void SetEmpty(bool empty = true);
  virtual void Reset();
  virtual void Assign(const CExtGridCell& other);
  virtual int CompareEx(int mode, const CExtGridCell& other, uint32_t styleMask = 0,
                        uint32_t styleExMask = 0) const;
  virtual int Compare(const CExtGridCell& other, uint32_t styleMask = 0, uint32_t styleExMask = 0) const;
  virtual int CompareStyleOnly(const CExtGridCell& other, uint32_t styleMask = 0,
                               uint32_t styleExMask = 0) const;
  virtual void TextGet(std::string& text) const;
  virtual void TextSet(const char* text, bool asIs = false);
  virtual const char* TextBufferGet() const { return nullptr; }
  virtual void VariantGet(Variant& value) const;
  virtual CExtGridCell* Clone(IMalloc* alloc = nullptr) const;
  virtual void OnQueryTextForInplaceControl(std::string& text) const { TextGet(text); }
  // 0 accepts `text`; otherwise the code of the failure.
  virtual platform::HRESULT OnParseText(const char* text) const;
  // Data that mix-ins of derived cells add to the archive form; the base has none.
  virtual bool OnSerializeEx(Archive& ar) { return ar.ok(); }

  virtual int32_t IconIndexGet() const { return m_nIconIndex; }
  virtual void IconIndexSet(int32_t index) { m_nIconIndex = index; }
  virtual int32_t FontIndexGet() const { return m_nFontIndex; }
  virtual void FontIndexSet(int32_t index) { m_nFontIndex = index; }
  // Alignment in the cell; `autoAlign` asks the cell to pick one for its value.
  virtual void GetAlignment(bool autoAlign, HorzAlign& horz, VertAlign& vert) const;

 protected:
  // The result of the variant comparison: -1, 0 or 1; equal and null are 0.
  static int CompareVariants(const Variant& a, const Variant& b);
  // Owner's allocator memory for derived data; the heap when there is no owner.
  void* OwnerAlloc(size_t size) const;
  void OwnerFree(void* pointer) const;

  CExtGridDataProvider* m_pOwner = nullptr;
  uint32_t m_dwStyle = kStyleDefault;
  uint32_t m_dwStyleEx = kStyleExEmpty;
  int32_t m_nIconIndex = -1;
  int32_t m_nFontIndex = -1;
  uint32_t m_dwData = 0;
};

// A string cell whose text lives in memory from its owner's allocator, so that header cells of
// a big grid cost a block each and no heap piece.
class CExtGridCellStringDM : public CExtGridCell {
  QMK_GRID_CELL_CLASS(CExtGridCellStringDM)
 public:
  CExtGridCellStringDM() = default;
  ~CExtGridCellStringDM() override;
  bool Serialize(Archive& ar) override;
  void SetOwner(CExtGridDataProvider* owner) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override;
  const char* TextBufferGet() const override { return m_pText; }

 private:
  void Store(const char* text, size_t length);
  void Drop();
  char* m_pText = nullptr;
};

}  // namespace qmk::toolkit::grid
