// litehtml_host.h: the part of a litehtml document container that the rich content benchmarks
// share: a page of a given size on a screen, no images, links, cursors or clipping. Each
// benchmark derives the fonts, text measuring and drawing it wants timed.
#pragma once

#ifdef QMK_BENCH_LITEHTML
#include <litehtml.h>

#include <memory>

namespace qmk::bench {

class LitehtmlPageHost : public litehtml::document_container {
 public:
  LitehtmlPageHost(int width, int height, const litehtml::tchar_t* fontName)
      : m_width(width), m_height(height), m_fontName(fontName) {}

  int pt_to_px(int pt) const override { return pt * 96 / 72; }
  int get_default_font_size() const override { return 13; }
  const litehtml::tchar_t* get_default_font_name() const override { return m_fontName; }
  void delete_font(litehtml::uint_ptr) override {}
  void draw_list_marker(litehtml::uint_ptr, const litehtml::list_marker&) override {}
  void load_image(const litehtml::tchar_t*, const litehtml::tchar_t*, bool) override {}
  void get_image_size(const litehtml::tchar_t*, const litehtml::tchar_t*, litehtml::size& sz) override {
    sz.width = sz.height = 0;
  }
  void draw_background(litehtml::uint_ptr, const litehtml::background_paint&) override {}
  void draw_borders(litehtml::uint_ptr, const litehtml::borders&, const litehtml::position&, bool) override {}
  void set_caption(const litehtml::tchar_t*) override {}
  void set_base_url(const litehtml::tchar_t*) override {}
  void link(const std::shared_ptr<litehtml::document>&, const litehtml::element::ptr&) override {}
  void on_anchor_click(const litehtml::tchar_t*, const litehtml::element::ptr&) override {}
  void set_cursor(const litehtml::tchar_t*) override {}
  void transform_text(litehtml::tstring&, litehtml::text_transform) override {}
  void import_css(litehtml::tstring&, const litehtml::tstring&, litehtml::tstring&) override {}
  void set_clip(const litehtml::position&, const litehtml::border_radiuses&, bool, bool) override {}
  void del_clip() override {}
  void get_client_rect(litehtml::position& client) const override { client = {0, 0, m_width, m_height}; }
  std::shared_ptr<litehtml::element> create_element(const litehtml::tchar_t*, const litehtml::string_map&,
                                                    const std::shared_ptr<litehtml::document>&) override {
    return nullptr;
  }
  void get_media_features(litehtml::media_features& media) const override {
    media.type = litehtml::media_type_screen;
    media.width = media.device_width = m_width;
    media.height = media.device_height = m_height;
    media.color = 8;
    media.monochrome = 0;
    media.color_index = 256;
    media.resolution = 96;
  }
  void get_language(litehtml::tstring& language, litehtml::tstring& culture) const override {
    language = "en";
    culture.clear();
  }

 private:
  int m_width, m_height;
  const litehtml::tchar_t* m_fontName;
};

}  // namespace qmk::bench
#endif
