// isa, cast and dyn_cast: from a class of the metamodel to one derived from it.
//
//   if (const auto* key = dyn_cast<VornForeignKey>(object)) ...   // null if it is no foreign key
//   const auto& table = cast<VornClass>(*key.getOwner());         // must be a table
#pragma once

#include <cassert>
#include <type_traits>

#include "host/metamodel/object.h"

// Whether `object` is a T.
template <class T, class Object>
bool isa(const Object& object) {
  static_assert(std::is_base_of_v<Object, T>, "no object of this class is a T");
  if constexpr (std::is_final_v<T>) {
    return object.getElementType() == T::kElementType;
  } else {
    return dynamic_cast<const T*>(&object) != nullptr;
  }
}

namespace vorn_detail {

template <class T, class Object>
using CopyConst = std::conditional_t<std::is_const_v<Object>, const T, T>;

}  // namespace vorn_detail

// `object`, which must be a T.
template <class T, class Object>
vorn_detail::CopyConst<T, Object>& cast(Object& object) {
  assert(isa<T>(object));
  return static_cast<vorn_detail::CopyConst<T, Object>&>(object);
}

// The same for a pointer; null stays null.
template <class T, class Object>
vorn_detail::CopyConst<T, Object>* cast(Object* object) {
  assert(object == nullptr || isa<T>(*object));
  return static_cast<vorn_detail::CopyConst<T, Object>*>(object);
}

// `object` if it is a T, otherwise null; null stays null.
template <class T, class Object>
vorn_detail::CopyConst<T, Object>* dyn_cast(Object* object) {
  return object != nullptr && isa<T>(*object) ? cast<T>(object) : nullptr;
}
