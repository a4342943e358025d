// Which ends belong together: a link in one end of a pair is also in the other.
#pragma once

#include "host/metamodel/relationship.h"
#include "host/metamodel/store_model.h"

// The end that belongs to `kEnd`. Owner ends are not listed: see VornOwned.
template <auto kEnd>
inline constexpr auto kOppositeEnd = nullptr;

// clang-format off
template <> inline constexpr auto kOppositeEnd<&VornClass::primaryCandidateKey>                 = &VornCandidateKey::primaryOf;
template <> inline constexpr auto kOppositeEnd<&VornSQLViewEntity::sourceElementCollection>     = &VornClassifier::readingViewCollection;
template <> inline constexpr auto kOppositeEnd<&VornFeature::type>                              = &VornType::featureCollection;
template <> inline constexpr auto kOppositeEnd<&VornAttribute::indexMemberCollection>           = &VornIndexMember::attribute;
template <> inline constexpr auto kOppositeEnd<&VornKey::attributeCollection>                   = &VornAttribute::keyCollection;
template <> inline constexpr auto kOppositeEnd<&VornAssociationRoleNameMap::sourceAttribute>    = &VornAttribute::sourceRoleNameMapCollection;
template <> inline constexpr auto kOppositeEnd<&VornAssociationRoleNameMap::destinationAttribute> = &VornAttribute::destinationRoleNameMapCollection;
template <> inline constexpr auto kOppositeEnd<&VornForeignKey::candidateKey>                   = &VornCandidateKey::foreignKeyCollection;
template <> inline constexpr auto kOppositeEnd<&VornForeignKey::associationRole>                = &VornAssociationRole::foreignKeyCollection;
template <> inline constexpr auto kOppositeEnd<&VornForeignKey::generalizationRole>             = &VornGeneralizationRole::foreignKeyCollection;
template <> inline constexpr auto kOppositeEnd<&VornIndex::key>                                 = &VornKey::index;
template <> inline constexpr auto kOppositeEnd<&VornAssociationRole::associatedClass>           = &VornClass::associationRoleCollection;
template <> inline constexpr auto kOppositeEnd<&VornGeneralizationRole::associatedClass>        = &VornClass::generalizationRoleCollection;
template <> inline constexpr auto kOppositeEnd<&VornDerivedType::derivedFrom>                   = &VornConcreteType::derivedTypeCollection;
template <> inline constexpr auto kOppositeEnd<&VornPackage::importedElementCollection>         = &VornNamespaceElement::importingPackageCollection;
template <> inline constexpr auto kOppositeEnd<&VornDiagram::modelElementCollection>            = &VornModelElement::diagramCollection;
// clang-format on

// Links `a`, through its end `kEnd`, and `b`. An end that holds one link drops the link it held. Returns
// false, and changes nothing, if they are linked so already. Objects without such an end do not compile.
template <auto kEnd, class A, class B>
requires requires(A& a, B& b) {
  a.*kEnd;
  b.*kOppositeEnd<kEnd>;
}
bool connect(A& a, B& b) {
  return VornLinks::join(a, a.*kEnd, b, b.*kOppositeEnd<kEnd>);
}
