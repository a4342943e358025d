// VornLinked: the visit of a class's ends, which follows from their list.
//
//   class VornIndexMember final : public VornLinked<VornIndexMember, VornModelObject> {
//    public:
//     VornOne<VornAttribute> attribute;
//     static constexpr std::tuple kEnds = {&VornIndexMember::attribute};
//   };
#pragma once

#include <tuple>

#include "host/metamodel/object.h"

// How a visitor sees each kind of end.
template <class T>
void visitEnd(VornLinkVisitor& visitor, VornOne<T>& end) {
  visitor.visitReference(end);
}
template <class T>
void visitEnd(VornLinkVisitor& visitor, VornMany<T>& end) {
  visitor.visitReferences(end);
}
template <class T>
void visitEnd(VornLinkVisitor& visitor, VornHeld<T>& end) {
  visitor.visitOwned(end);
}

// Visits the ends of `Base`, then those that `Self` lists as kEnds, in that order.
template <class Self, class Base>
class VornLinked : public Base {
 public:
  void visitLinks(VornLinkVisitor& visitor) override {
    Base::visitLinks(visitor);
    std::apply([&](auto... ends) { (visitEnd(visitor, static_cast<Self*>(this)->*ends), ...); }, Self::kEnds);
  }

 protected:
  VornLinked() = default;
};
