// journal.cpp: formats transport calls into the journal's text form.
#include "journal.h"

namespace qmk::sim {

void Journal::Add(const char* name, std::initializer_list<Arg> args) {
  std::string text = name;
  text += '(';
  bool first = true;
  for (const Arg& a : args) {
    if (!first) text += ", ";
    first = false;
    switch (a.kind) {
      case Arg::Kind::kNumber: text += std::to_string(a.value); break;
      case Arg::Kind::kSession: text += a.value ? "rec" : "0"; break;
      case Arg::Kind::kAddress: text += a.value ? "&" : "0"; break;
    }
  }
  text += ')';
  entries_.push_back(std::move(text));
}

}  // namespace qmk::sim
