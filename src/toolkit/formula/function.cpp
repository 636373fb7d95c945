// function.cpp: the parameter rules of a function call, argument evaluation, and the function set.
#include "toolkit/formula/function.h"

#include <atomic>
#include <cstdio>
#include <typeinfo>

#include "toolkit/formula/data_manager.h"
#include "toolkit/formula/errors.h"
#include "toolkit/formula/item.h"

namespace qmk::toolkit::formula {

int FunctionCall::ArgumentCount() const { return item.GetChildCount(); }

const CExtFormulaItem* FunctionCall::ArgumentItem(int index) const { return item.GetChildAt(index); }

int FunctionCall::Argument(int index, CExtFormulaValue& out) {
  const CExtFormulaItem* arg = item.GetChildAt(index);
  if (arg == nullptr) {
    out.Clear();
    return Fail(kErrParameterCount);
  }
  return arg->Compute(context, out, manager, errorItem);
}

int FunctionCall::ArgumentAs(int index, platform::VarType type, int code, CExtFormulaValue& out) {
  if (const int error = Argument(index, out)) return error;
  if (!out.ChangeType(type)) return Fail(code, item.GetChildAt(index));
  return 0;
}

int FunctionCall::Fail(int code, const CExtFormulaItem* at) {
  if (errorItem == nullptr) errorItem = at;
  return code;
}

std::string CExtFormulaFunction::GetCategoryName() const {
  static const char* const kNames[] = {"Logical",     "Math & Trig",        "Statistical", "Text",
                                       "Date & Time", "Lookup & Reference", "Information"};
  const int category = GetCategory();
  return category >= 0 && category < 7 ? kNames[category] : "Unknown";
}

bool CExtFormulaFunction::IsValidParamCount(int count) const {
  if (count < 0) return false;
  const int low = GetMinParams(), high = GetMaxParams();
  if (low == high) return count == low;
  if (low >= 0 && count < low) return false;
  if (high >= 0 && count > high) return false;
  return true;
}

bool CExtFormulaFunction::GetDescription(int, std::string& text) const {
  text.clear();
  return false;
}

int CExtFormulaFunction::Evaluate(FormulaContext& context, CExtFormulaValue& value, CExtFormulaDataManager& manager,
                                  const CExtFormulaItem& item, const CExtFormulaItem*& errorItem) const {
  FunctionCall call{context, value, manager, item, errorItem};
  if (item.m_nKind == kKindIdentifier && !AllowsBareName()) return call.Fail(kErrFunctionAsIdentifier);
  if (!IsValidParamCount(item.GetChildCount())) return call.Fail(kErrParameterCount);
  // The syntax alone decides here: a name or a call that yields a range passes.
  if (!AcceptsRanges() && !AcceptsEmpty()) {
    for (int i = 0; i < item.GetChildCount(); ++i) {
      const int kind = item.GetChildAt(i)->m_nKind;
      if (kind == kKindNone) return call.Fail(kErrEmptyParameter);
      if (kind == kKindRange || kind == kKindIntersection) return call.Fail(kErrRangeParameter);
    }
  }
  value.Clear();
  const int error = ComputeResult(call);
  if (error == 0 && value.m_nKind == CExtFormulaValue::kNone) value.m_nKind = CExtFormulaValue::kScalar;
  return error;
}

int CExtFormulaFunction::EvaluateArguments(std::vector<CExtFormulaValue>& values, FunctionCall& call,
                                           platform::VarType type, int code) {
  values.assign(static_cast<size_t>(call.ArgumentCount()), CExtFormulaValue());
  for (int i = 0; i < call.ArgumentCount(); ++i) {
    if (const int error = call.Argument(i, values[i])) return error;
    // A range value holds no variant and converts as empty.
    if (type != platform::VT_EMPTY && !values[i].ChangeType(type)) return call.Fail(code, call.ArgumentItem(i));
  }
  return 0;
}

bool CExtTableFunction::AllowsBareName() const {
  return !m_spec.no_bare_name && CExtFormulaFunction::AllowsBareName();
}

namespace {
// The `index`th name (from 0) of a comma-separated list; false past its end.
bool NthName(const char* list, int index, std::string& name) {
  std::string all = list ? list : "";
  size_t begin = 0;
  for (int i = 0; i < index; ++i) {
    begin = all.find(',', begin);
    if (begin == std::string::npos) return false;
    ++begin;
  }
  if (all.empty()) return false;
  const size_t end = all.find(',', begin);
  name = all.substr(begin, end == std::string::npos ? std::string::npos : end - begin);
  return true;
}
}  // namespace

bool CExtTableFunction::GetDescription(int index, std::string& text) const {
  text.clear();
  if (index == 0) {
    text = m_spec.description;
    return true;
  }
  std::string name;
  if (!NthName(m_spec.parameters, (index < 0 ? -index : index) - 1, name)) return false;
  text = index < 0 ? name : std::string(m_spec.parameter_text ? m_spec.parameter_text : "");
  return true;
}

CExtFormulaFunction* CExtFormulaFunctionSet::Find(const char* name) const {
  if (name == nullptr) return nullptr;
  const auto it = m_functions.find(name);
  return it == m_functions.end() ? nullptr : it->second.get();
}

uint64_t CExtFormulaFunctionSet::NextStamp() {
  static std::atomic<uint64_t> last{0};
  return ++last;
}

const CExtFormulaFunction* CExtFormulaFunctionSet::FindForCall(const CExtFormulaItem& call) const {
  if (typeid(*this) != typeid(CExtFormulaFunctionSet)) return Find(call.m_strText.c_str());
  if (call.m_nFunctionStamp != m_nChanges) {
    call.m_pFunction = Find(call.m_strText.c_str());
    call.m_nFunctionStamp = m_nChanges;
  }
  return call.m_pFunction;
}

bool CExtFormulaFunctionSet::Add(CExtFormulaFunction* function, bool replace) {
  std::unique_ptr<CExtFormulaFunction> owned(function);
  if (!owned) return false;
  auto& slot = m_functions[owned->GetName()];
  if (slot && !replace) return false;
  m_nChanges = NextStamp();
  slot = std::move(owned);
  return true;
}

bool CExtFormulaFunctionSet::Remove(const char* name) {
  m_nChanges = NextStamp();
  return name != nullptr && m_functions.erase(name) > 0;
}

CExtFormulaFunction* CExtFormulaFunctionSet::GetNext(Position& position, int category) const {
  while (position != m_functions.end()) {
    CExtFormulaFunction* function = position->second.get();
    ++position;
    if (category == -1 || function->GetCategory() == category) return function;
  }
  return nullptr;
}

bool CExtFormulaFunctionSet::RegisterCategory(int category, bool replace) {
  static FunctionFamily (*const kFamilies[])() = {LogicalFunctions, MathFunctions,   StatisticalFunctions,
                                                  TextFunctions,    DateFunctions,   LookupFunctions,
                                                  InformationFunctions};
  if (category < 0 || category >= 7) return false;
  const FunctionFamily family = kFamilies[category]();
  for (size_t i = 0; i < family.count; ++i)
    if (!Add(new CExtTableFunction(family.rows[i], category), replace)) return false;
  return true;
}

bool CExtFormulaFunctionSet::RegisterAll(bool replace) {
  for (int category = 0; category < 7; ++category)
    if (!RegisterCategory(category, replace)) return false;
  return true;
}

}  // namespace qmk::toolkit::formula
