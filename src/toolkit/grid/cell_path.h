// cell_path.h: cells that hold a path and offer a browse button: a file, a picture file, and a
// folder.
#pragma once

#include <string>
#include <vector>

#include "toolkit/grid/cell_ex.h"

namespace qmk::toolkit::grid {

// A file path. The browse dialog offers `filter`, written as the dialog takes it: pairs of a
// description and patterns, all separated by '|' ("Text (*.txt)|*.txt;*.log||"). With the flag
// kFilterEnforced, only a name that one of the patterns matches may be stored.
class CExtGridCellFile : public CExtGridCellString {
  QMK_GRID_CELL_CLASS(CExtGridCellFile)
 public:
  static constexpr uint32_t kFilterEnforced = 0x1;

  const std::string& FilterGet() const { return m_strFilter; }
  void FilterSet(const std::string& filter) { m_strFilter = filter; }
  // The extension a dialog adds to a name without one, without its dot.
  const std::string& DefaultExtGet() const { return m_strDefaultExt; }
  void DefaultExtSet(const std::string& ext) { m_strDefaultExt = ext; }
  uint32_t FileFlagsGet() const { return m_dwFileFlags; }
  void FileFlagsSet(uint32_t flags) { m_dwFileFlags = flags; }

  // The parts of the stored path; both '/' and '\' separate folders.
  std::string FileNameGet() const;
  std::string FolderGet() const;
  // The extension without its dot; "" when the name has none.
  std::string ExtensionGet() const;
  // The path, with the default extension added when the name has none.
  std::string PathWithDefaultExt() const;
  // Whether one of the filter's patterns ('*' and '?' wildcards, letter case ignored) matches
  // the name part of `path`. An empty filter matches every name.
  bool MatchesFilter(const std::string& path) const;
  // The patterns of the filter in order.
  std::vector<std::string> FilterPatterns() const;

  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;
  // Blanks around the text go; a text the cell refuses leaves the old path.
  void TextSet(const char* text, bool asIs = false) override;
  // Refuses a path that ends in a separator (that names a folder) and, with kFilterEnforced, a
  // name no pattern matches. An empty text is accepted: it clears the cell.
  platform::HRESULT OnParseText(const char* text) const override;

 protected:
  std::string m_strFilter;
  std::string m_strDefaultExt;
  uint32_t m_dwFileFlags = 0;
};

// A picture file: the filter offers the bitmap files the bitmap engine reads, and is enforced.
class CExtGridCellFileImage : public CExtGridCellFile {
  QMK_GRID_CELL_CLASS(CExtGridCellFileImage)
 public:
  static constexpr const char* kImageFilter = "Bitmaps (*.bmp;*.dib;*.rle)|*.bmp;*.dib;*.rle||";
  CExtGridCellFileImage();
};

// A folder path. Separators at the end are dropped, except the one of a root ("/", "C:\").
class CExtGridCellFolder : public CExtGridCellString {
  QMK_GRID_CELL_CLASS(CExtGridCellFolder)
 public:
  void TextSet(const char* text, bool asIs = false) override;
  // The folder path with one separator between it and `name`.
  std::string Join(const std::string& name) const;
};

// Whether `pattern` ('*' any run, '?' one character, letter case ignored) matches all of `name`.
// "*.*" matches every name, with or without a dot, as file dialogs do.
bool WildcardMatch(const std::string& pattern, const std::string& name);

}  // namespace qmk::toolkit::grid
