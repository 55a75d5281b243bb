// SPDX-License-Identifier: BSD-3-Clause
#include "model/Constituent.h"

#include <cassert>
#include <utility>

namespace lamcraft {

Constituent::Constituent(const std::int32_t number, std::string name, std::string type)
    : number_(number), name_(std::move(name)), type_(std::move(type)) {}

namespace {

const Constituent* findBelow(const Constituent& parent, const std::string_view name) {
  for (const Constituent* const child : parent.children()) {
    const Constituent* const found = child->name() == name ? child : findBelow(*child, name);
    if (found != nullptr) {
      return found;
    }
  }
  return nullptr;
}

}  // namespace

std::vector<const Constituent*> ParentCons::children() const {
  std::vector<const Constituent*> all;
  for (const auto& child : children_) {
    all.push_back(child.get());
  }
  return all;
}

Constituent& ParentCons::add(std::unique_ptr<Constituent> child) {
  assert(child != nullptr);
  children_.push_back(std::move(child));
  return *children_.back();
}

const Constituent* ParentCons::find(const std::string_view name) const {
  return findBelow(*this, name);
}

Constituent* ParentCons::find(const std::string_view name) {
  return const_cast<Constituent*>(std::as_const(*this).find(name));
}

const Constituent& ParentCons::get(const std::string_view name) const {
  const Constituent* const found = find(name);
  assert(found != nullptr);
  return *found;
}

Constituent& ParentCons::get(const std::string_view name) {
  return const_cast<Constituent&>(std::as_const(*this).get(name));
}

std::int32_t reportedCount(const Constituent& constituent) {
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
