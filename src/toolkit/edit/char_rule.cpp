// char_rule.cpp: the default byte tests of mask rules and the archive form of rules.
#include <cstdint>

#include "toolkit/edit/behavior_masked.h"

namespace qmk::toolkit::edit {
namespace {

// A rule on file takes 8 bytes: its symbol and its reserved word.
constexpr uint64_t kRuleBytes = 8;

}  // namespace

int IsMaskDigit(int ch) { return ch >= '0' && ch <= '9'; }

int IsMaskLetter(int ch) {
  const int b = ch & 0xFF;
  return (b >= 'A' && b <= 'Z') || (b >= 'a' && b <= 'z') || b >= 0x80;
}

int IsMaskLetterOrDigit(int ch) { return IsMaskDigit(ch) || IsMaskLetter(ch); }

bool CBehaviorMasked::CharRule::Validate(char ch) const {
  return !m_fnValidation || m_fnValidation(static_cast<unsigned char>(ch)) != 0;
}

char CBehaviorMasked::CharRule::Convert(char ch) const {
  return m_fnConversion ? static_cast<char>(m_fnConversion(static_cast<unsigned char>(ch))) : ch;
}

void CBehaviorMasked::CharRule::Serialize(platform::Archive& ar) {
  if (ar.IsStoring()) {
    ar.WriteU32(static_cast<uint32_t>(static_cast<int32_t>(m_cSymbol)));
    ar.WriteU32(static_cast<uint32_t>(m_nReserved));
    return;
  }
  m_cSymbol = static_cast<char>(static_cast<int32_t>(ar.ReadU32()));
  m_nReserved = static_cast<int32_t>(ar.ReadU32());
  m_fnValidation = nullptr;
  m_fnConversion = nullptr;
}

bool CBehaviorMasked::CharRuleArray::Serialize(platform::Archive& ar) {
  if (ar.IsStoring()) {
    ar.WriteU32(static_cast<uint32_t>(size()));
    for (CharRule& rule : *this) rule.Serialize(ar);
    return ar.ok();
  }
  const uint32_t count = ar.ReadU32();
  if (!ar.ok()) return false;
  // A count the archive cannot hold is refused before anything is allocated for it.
  if (const auto remaining = ar.Remaining(); remaining && count > *remaining / kRuleBytes) return false;
  std::vector<CharRule> loaded(count);
  for (CharRule& rule : loaded) {
    rule.Serialize(ar);
    if (!ar.ok()) return false;
  }
  assign(loaded.begin(), loaded.end());
  return true;
}

}  // namespace qmk::toolkit::edit
