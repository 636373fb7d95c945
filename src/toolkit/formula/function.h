// function.h: CExtFormulaFunction, one function a formula can call, and the set of them.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/variant/variant.h"
#include "toolkit/formula/value.h"

namespace qmk::toolkit::formula {

class CExtFormulaItem;
class CExtFormulaDataManager;

// Everything a function needs while it computes one call.
struct FunctionCall {
  FormulaContext& context;
  CExtFormulaValue& value;
  CExtFormulaDataManager& manager;
  const CExtFormulaItem& item;
  const CExtFormulaItem*& errorItem;

  int ArgumentCount() const;
  const CExtFormulaItem* ArgumentItem(int index) const;
  // Computes argument `index` into `out`; its error code, or 0.
  int Argument(int index, CExtFormulaValue& out);
  // Computes argument `index` and converts it; the argument's own error first, then `code`
  // when the conversion fails (with the error item on the argument).
  int ArgumentAs(int index, platform::VarType type, int code, CExtFormulaValue& out);
  // Records `at` as the error item unless one is set, and returns `code`.
  int Fail(int code, const CExtFormulaItem* at);
  int Fail(int code) { return Fail(code, &item); }
  // Stores the result: kind 1.
  int Result(const platform::Variant& result) {
    value.SetScalar(result);
    return 0;
  }
};

class CExtFormulaFunction {
 public:
  virtual ~CExtFormulaFunction() = default;
  virtual const char* GetName() const = 0;
  virtual int GetCategory() const { return 1000; }
  virtual std::string GetCategoryName() const;
  // True when the name alone, without parentheses, calls the function.
  virtual bool AllowsBareName() const { return GetMinParams() == 0 && GetMaxParams() == 0; }
  virtual int GetMinParams() const = 0;
  // Negative: no limit.
  virtual int GetMaxParams() const = 0;
  virtual bool IsValidParamCount(int count) const;
  virtual bool AcceptsRanges() const { return false; }
  virtual bool AcceptsEmpty() const { return false; }
  // 0: the description; -1, -2...: parameter names; 1, 2...: parameter descriptions.
  virtual bool GetDescription(int index, std::string& text) const;
  // The checks every call goes through, then ComputeResult.
  virtual int Evaluate(FormulaContext& context, CExtFormulaValue& value, CExtFormulaDataManager& manager,
                       const CExtFormulaItem& item, const CExtFormulaItem*& errorItem) const;
  virtual int ComputeResult(FunctionCall& call) const = 0;

  // Computes every argument in order into `values`; with a type other than VT_EMPTY each is
  // converted, a failure giving `code` with the error item on that argument.
  static int EvaluateArguments(std::vector<CExtFormulaValue>& values, FunctionCall& call,
                               platform::VarType type, int code);
};

using ComputeFn = int (*)(FunctionCall& call);

// One row of a family's table: a function is its name, counts, texts and computing routine.
struct FunctionSpec {
  const char* name;
  int min_params;
  int max_params;  // -1: no limit
  ComputeFn compute;
  const char* description;
  const char* parameters;  // names separated by ","; a variadic one holds "%d"
  const char* parameter_text;  // the description shared by the parameters
  bool accepts_ranges = false;
  bool no_bare_name = false;  // zero parameters, yet the name alone is error 6
};

// A function built from a FunctionSpec row.
class CExtTableFunction : public CExtFormulaFunction {
 public:
  CExtTableFunction(const FunctionSpec& spec, int category) : m_spec(spec), m_nCategory(category) {}
  const char* GetName() const override { return m_spec.name; }
  int GetCategory() const override { return m_nCategory; }
  bool AllowsBareName() const override;
  int GetMinParams() const override { return m_spec.min_params; }
  int GetMaxParams() const override { return m_spec.max_params; }
  bool AcceptsRanges() const override { return m_spec.accepts_ranges; }
  bool GetDescription(int index, std::string& text) const override;
  int ComputeResult(FunctionCall& call) const override { return m_spec.compute(call); }

 private:
  FunctionSpec m_spec;
  int m_nCategory;
};

// The table of one category.
struct FunctionFamily {
  const FunctionSpec* rows;
  size_t count;
};
// The families by category number 0..6: logical, math & trig, statistical, text, date & time,
// lookup & reference, information.
FunctionFamily LogicalFunctions();
FunctionFamily MathFunctions();
FunctionFamily StatisticalFunctions();
FunctionFamily TextFunctions();
FunctionFamily DateFunctions();
FunctionFamily LookupFunctions();
FunctionFamily InformationFunctions();

class CExtFormulaFunctionSet {
 public:
  using Position = std::map<std::string, std::unique_ptr<CExtFormulaFunction>>::const_iterator;

  virtual ~CExtFormulaFunctionSet() = default;
  // Exact case; null for a null or unknown name.
  virtual CExtFormulaFunction* Find(const char* name) const;
  // Takes ownership. False for null, or for a known name without `replace` (then the function
  // is deleted).
  virtual bool Add(CExtFormulaFunction* function, bool replace);
  virtual bool Remove(const char* name);
  virtual void RemoveAll() {
    m_functions.clear();
    m_nChanges = NextStamp();
  }
  virtual Position GetFirstPosition() const { return m_functions.begin(); }
  // The function at `position` (null at the end) and the position moved to the next one of
  // `category` (-1: any).
  virtual CExtFormulaFunction* GetNext(Position& position, int category) const;
  virtual bool RegisterCategory(int category, bool replace);
  // Categories 0 to 6, stopping at the first failure.
  virtual bool RegisterAll(bool replace);
  virtual bool Reset() {
    RemoveAll();
    return RegisterAll(true);
  }
  size_t GetCount() const { return m_functions.size(); }
  // Changes with every change of the set, and differs between sets, so that what is derived
  // from a set can tell when to look again.
  uint64_t GetChangeCount() const { return m_nChanges; }
  // The function a call node names, remembered in the node while the set is unchanged; looked
  // up every time in a set whose Find is another class's.
  const CExtFormulaFunction* FindForCall(const CExtFormulaItem& call) const;

 private:
  static uint64_t NextStamp();

  std::map<std::string, std::unique_ptr<CExtFormulaFunction>> m_functions;
  uint64_t m_nChanges = NextStamp();
};

}  // namespace qmk::toolkit::formula
