// cell_path.cpp: the file, picture file and folder cells.
#include "toolkit/grid/cell_path.h"

#include <cctype>

#include "toolkit/grid/cell_archive_io.h"
#include "toolkit/grid/cell_text.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellFile, CExtGridCellString)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellFileImage, CExtGridCellFile)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellFolder, CExtGridCellString)

namespace {

bool IsSeparator(char c) { return c == '/' || c == '\\'; }

size_t NameStart(const std::string& path) {
  const size_t last = path.find_last_of("/\\");
  return last == std::string::npos ? 0 : last + 1;
}

// The length of the root at the start of a path: "/", "\", "C:\" or "C:/"; 0 for none.
size_t RootLength(const std::string& path) {
  if (!path.empty() && IsSeparator(path[0])) return 1;
  if (path.size() >= 3 && std::isalpha(static_cast<unsigned char>(path[0])) && path[1] == ':' && IsSeparator(path[2]))
    return 3;
  return 0;
}

bool MatchFrom(const char* p, const char* n) {
  // Iterative match with one back-track point: the last '*' seen.
  const char* star = nullptr;
  const char* resume = nullptr;
  while (*n) {
    if (*p == '?' || (*p && *p != '*' && std::tolower(static_cast<unsigned char>(*p)) ==
                                             std::tolower(static_cast<unsigned char>(*n)))) {
      ++p;
      ++n;
    } else if (*p == '*') {
      star = p++;
      resume = n;
    } else if (star) {
      p = star + 1;
      n = ++resume;
    } else {
      return false;
    }
  }
  while (*p == '*') ++p;
  return *p == 0;
}

}  // namespace

bool WildcardMatch(const std::string& pattern, const std::string& name) {
  if (pattern == "*.*") return true;
  return MatchFrom(pattern.c_str(), name.c_str());
}

// ---- file ----

std::string CExtGridCellFile::FileNameGet() const { return m_strText.substr(NameStart(m_strText)); }

std::string CExtGridCellFile::FolderGet() const {
  const size_t start = NameStart(m_strText);
  return start == 0 ? std::string() : m_strText.substr(0, start - 1);
}

std::string CExtGridCellFile::ExtensionGet() const {
  const std::string name = FileNameGet();
  const size_t dot = name.find_last_of('.');
  // A leading dot names a hidden file, not an extension.
  return dot == std::string::npos || dot == 0 ? std::string() : name.substr(dot + 1);
}

std::string CExtGridCellFile::PathWithDefaultExt() const {
  const std::string name = FileNameGet();
  if (name.empty() || m_strDefaultExt.empty() || !ExtensionGet().empty()) return m_strText;
  if (name.back() == '.') return m_strText + m_strDefaultExt;
  return m_strText + "." + m_strDefaultExt;
}

std::vector<std::string> CExtGridCellFile::FilterPatterns() const {
  std::vector<std::string> patterns;
  size_t start = 0;
  bool isPatternPart = false;  // the parts alternate: description, patterns, description, ...
  while (start <= m_strFilter.size()) {
    size_t bar = m_strFilter.find('|', start);
    if (bar == std::string::npos) bar = m_strFilter.size();
    if (isPatternPart) {
      const std::string part = m_strFilter.substr(start, bar - start);
      size_t from = 0;
      while (from <= part.size()) {
        size_t semi = part.find(';', from);
        if (semi == std::string::npos) semi = part.size();
        const std::string one = TrimmedText(part.substr(from, semi - from).c_str());
        if (!one.empty()) patterns.push_back(one);
        from = semi + 1;
      }
    }
    isPatternPart = !isPatternPart;
    start = bar + 1;
  }
  return patterns;
}

bool CExtGridCellFile::MatchesFilter(const std::string& path) const {
  const std::vector<std::string> patterns = FilterPatterns();
  if (patterns.empty()) return true;
  const std::string name = path.substr(NameStart(path));
  for (const std::string& pattern : patterns)
    if (WildcardMatch(pattern, name)) return true;
  return false;
}

HRESULT CExtGridCellFile::OnParseText(const char* text) const {
  const std::string path = TrimmedText(text);
  if (path.empty()) return S_OK;
  if (IsSeparator(path.back())) return E_INVALIDARG;
  if ((m_dwFileFlags & kFilterEnforced) && !MatchesFilter(path)) return E_INVALIDARG;
  return S_OK;
}

void CExtGridCellFile::TextSet(const char* text, bool) {
  if (OnParseText(text) != S_OK) return;
  const std::string path = TrimmedText(text);
  if (path.empty()) {
    SetEmpty(true);
    return;
  }
  CExtGridCellString::TextSet(path.c_str());
}

bool CExtGridCellFile::Serialize(Archive& ar) {
  if (!CExtGridCellString::Serialize(ar)) return false;
  std::string filter = m_strFilter, ext = m_strDefaultExt;
  uint32_t flags = m_dwFileFlags;
  io::Text(ar, filter);
  io::Text(ar, ext);
  io::Word(ar, flags);
  if (!ar.ok()) return false;
  m_strFilter = std::move(filter);
  m_strDefaultExt = std::move(ext);
  m_dwFileFlags = flags;
  return true;
}

void CExtGridCellFile::Assign(const CExtGridCell& other) {
  CExtGridCellString::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellFile*>(&other)) {
    m_strFilter = o->m_strFilter;
    m_strDefaultExt = o->m_strDefaultExt;
    m_dwFileFlags = o->m_dwFileFlags;
  }
}

CExtGridCellFileImage::CExtGridCellFileImage() {
  m_strFilter = kImageFilter;
  m_strDefaultExt = "bmp";
  m_dwFileFlags = kFilterEnforced;
}

// ---- folder ----

void CExtGridCellFolder::TextSet(const char* text, bool) {
  std::string path = TrimmedText(text);
  const size_t root = RootLength(path);
  while (path.size() > root && IsSeparator(path.back())) path.pop_back();
  if (path.empty()) {
    SetEmpty(true);
    return;
  }
  CExtGridCellString::TextSet(path.c_str());
}

std::string CExtGridCellFolder::Join(const std::string& name) const {
  if (m_strText.empty()) return name;
  if (IsSeparator(m_strText.back())) return m_strText + name;
  // The folder's own separator kind is kept.
  const char separator = m_strText.find('\\') != std::string::npos ? '\\' : '/';
  return m_strText + separator + name;
}

}  // namespace qmk::toolkit::grid
