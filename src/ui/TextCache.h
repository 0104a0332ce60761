#pragma once
#include <cstddef>
#include <list>
#include <memory>
#include <unordered_map>

#include "ui/TextLayout.h"

namespace tarvel {

/// Keeps the layouts of the texts drawn last, so that painting a view again lays nothing out. Bounded by the
/// number of texts and by their characters; the one not used for longest goes first. Main thread.
class TextCache {
 public:
  static constexpr std::size_t kMaxTexts = 2'000;
  static constexpr std::size_t kMaxCharacters = 400'000;

  /// The one that `boundingRect` and `draw` use.
  static TextCache& shared();

  std::shared_ptr<const TextLayout> layout(const AttributedText& text, Size limit, TextFit fit,
                                           Appearance appearance);
  /// For when the fonts themselves, or the colours of the table, change.
  void clear();

  std::size_t textCount() const { return entries_.size(); }
  std::size_t characterCount() const { return characters_; }

 private:
  struct Key {
    AttributedText text;
    Size limit;
    TextFit fit;
    Appearance appearance;
    double textScale;
    bool operator==(const Key& other) const;
  };
  struct KeyHash {
    std::size_t operator()(const Key& key) const;
  };
  struct Entry {
    Key key;
    std::size_t characters;
    std::shared_ptr<const TextLayout> layout;
  };
  using Entries = std::list<Entry>;

  void dropOldest();

  Entries entries_;  ///< the one used last in front
  std::unordered_map<Key, Entries::iterator, KeyHash> index_;
  std::size_t characters_ = 0;
};

}  // namespace tarvel
