#include "model/Constituent.h"

#include <cassert>
#include <utility>

namespace lamcraft {

Constituent::Constituent(const std::int32_t number, std::string name, std::string type)
    : number_(number), name_(std::move(name)), type_(std::move(type)) {}

const Constituent::Children& Constituent::children() const noexcept {
  static const Children none;
  return none;
}

Constituent& ParentCons::add(std::unique_ptr<Constituent> child) {
  assert(child != nullptr);
  children_.push_back(std::move(child));
  return *children_.back();
}

namespace {

Constituent* findAmong(const Constituent::Children& children,
                       const std::string_view name) noexcept {
  for (const auto& child : children) {
    if (child->name() == name) {
      return child.get();
    }
    if (Constituent* const found = findAmong(child->children(), name)) {
      return found;
    }
  }
  return nullptr;
}

}  // namespace

Constituent* ParentCons::find(const std::string_view name) const noexcept {
  return findAmong(children_, name);
}

Constituent& ParentCons::get(const std::string_view name) const noexcept {
  Constituent* const found = find(name);
  assert(found != nullptr);
  return *found;
}

std::int32_t reportedCount(const Constituent& constituent) noexcept {
  const auto count = static_cast<std::int32_t>(constituent.children().size());
  switch (count) {
    case 0:
      return 1;
    case 4:
      return 3;
    default:
      return count;
  }
}

}  // namespace lamcraft
