// dialog_exchange.cpp: value moves between controls and models for the option dialogs' views.
#include "options/dialog_exchange.h"

#include <cctype>
#include <cstdlib>

#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/window.h"

namespace qmk::options::view {

namespace ui = platform::ui;

void ShowCheck(HWND dlg, int id, bool checked) {
  ui::CheckDlgButton(dlg, id, checked ? ui::BST_CHECKED : ui::BST_UNCHECKED);
}

bool ReadCheck(HWND dlg, int id) { return ui::IsDlgButtonChecked(dlg, id) == ui::BST_CHECKED; }

void ShowRadio(HWND dlg, const std::vector<int>& ids, int value) {
  for (size_t i = 0; i < ids.size(); ++i) ShowCheck(dlg, ids[i], static_cast<int>(i) == value);
}

int ReadRadio(HWND dlg, const std::vector<int>& ids, int fallback) {
  for (size_t i = 0; i < ids.size(); ++i)
    if (ReadCheck(dlg, ids[i])) return static_cast<int>(i);
  return fallback;
}

void ShowText(HWND dlg, int id, const std::string& text) {
  if (ui::GetDlgItemText(dlg, id) != text) ui::SetDlgItemText(dlg, id, text.c_str());
}

std::string ReadText(HWND dlg, int id) { return ui::GetDlgItemText(dlg, id); }

bool ReadNumber(HWND dlg, int id, long long& value) {
  const std::string text = ReadText(dlg, id);
  size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return false;
  size_t end = text.find_last_not_of(' ') + 1;
  const std::string digits = text.substr(first, end - first);
  size_t start = digits[0] == '-' ? 1 : 0;
  // Ten digits at most: anything longer is out of every range these dialogs check.
  if (digits.size() == start || digits.size() - start > 10) return false;
  for (size_t i = start; i < digits.size(); ++i)
    if (!std::isdigit(static_cast<unsigned char>(digits[i]))) return false;
  value = std::strtoll(digits.c_str(), nullptr, 10);
  return true;
}

void ShowEnabled(HWND dlg, int id, bool enabled) {
  if (HWND control = ui::GetDlgItem(dlg, id)) ui::EnableWindow(control, enabled);
}

void FillCombo(HWND dlg, int id, const std::vector<std::string>& items, int selected) {
  ui::SendDlgItemMessage(dlg, id, ui::CB_RESETCONTENT, 0, 0);
  for (const std::string& item : items)
    ui::SendDlgItemMessage(dlg, id, ui::CB_ADDSTRING, 0, reinterpret_cast<ui::LPARAM>(item.c_str()));
  SelectCombo(dlg, id, selected);
}

void SelectCombo(HWND dlg, int id, int selected) {
  ui::SendDlgItemMessage(dlg, id, ui::CB_SETCURSEL, static_cast<ui::WPARAM>(selected), 0);
}

int ReadComboSelection(HWND dlg, int id) {
  return static_cast<int>(ui::SendDlgItemMessage(dlg, id, ui::CB_GETCURSEL, 0, 0));
}

std::string ComboItemText(HWND dlg, int id, int index) {
  const auto length = ui::SendDlgItemMessage(dlg, id, ui::CB_GETLBTEXTLEN, static_cast<ui::WPARAM>(index), 0);
  if (length < 0) return {};
  std::string text(static_cast<size_t>(length) + 1, '\0');
  ui::SendDlgItemMessage(dlg, id, ui::CB_GETLBTEXT, static_cast<ui::WPARAM>(index),
                         reinterpret_cast<ui::LPARAM>(text.data()));
  text.resize(static_cast<size_t>(length));
  return text;
}

void LimitText(HWND dlg, int id, int characters) {
  ui::SendDlgItemMessage(dlg, id, ui::EM_LIMITTEXT, static_cast<ui::WPARAM>(characters), 0);
}

}  // namespace qmk::options::view
