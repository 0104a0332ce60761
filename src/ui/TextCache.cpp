#include "ui/TextCache.h"

#include <QHashFunctions>
#include <utility>

namespace tarvel {

TextCache& TextCache::shared() {
  static TextCache cache;
  return cache;
}

bool TextCache::Key::operator==(const Key& other) const {
  return limit == other.limit && fit == other.fit && appearance == other.appearance &&
         textScale == other.textScale && text.runs() == other.text.runs();
}

std::size_t TextCache::KeyHash::operator()(const Key& key) const {
  std::size_t seed = qHashMulti(0, key.limit.width, key.limit.height, static_cast<int>(key.fit));
  for (const TextRun& run : key.text.runs()) seed = qHashMulti(seed, run.text, run.attributes.fontSize);
  return seed;
}

std::shared_ptr<const TextLayout> TextCache::layout(const AttributedText& text, Size limit, TextFit fit,
                                                    Appearance appearance) {
  const bool sameInBoth = text.runs().size() <= 1;
  Key key{text, limit, fit, sameInBoth ? Appearance::light : appearance, textScale()};
  if (const auto found = index_.find(key); found != index_.end()) {
    entries_.splice(entries_.begin(), entries_, found->second);
    return found->second->layout;
  }
  std::size_t characters = 0;
  for (const TextRun& run : text.runs()) characters += static_cast<std::size_t>(run.text.size());
  entries_.push_front({key, characters, std::make_shared<TextLayout>(text, limit, fit, key.appearance)});
  index_.emplace(std::move(key), entries_.begin());
  characters_ += characters;
  auto made = entries_.front().layout;
  while (entries_.size() > 1 && (entries_.size() > kMaxTexts || characters_ > kMaxCharacters)) dropOldest();
  return made;
}

void TextCache::dropOldest() {
  characters_ -= entries_.back().characters;
  index_.erase(entries_.back().key);
  entries_.pop_back();
}

void TextCache::clear() {
  index_.clear();
  entries_.clear();
  characters_ = 0;
}

}  // namespace tarvel
