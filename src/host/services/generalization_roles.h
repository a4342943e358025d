// The ends of generalizations, by class. Constant time, however many subtypes a generalization has and
// however many generalizations a class is part of.
#pragma once

class VornClass;
class VornGeneralization;
class VornGeneralizationRole;

// The role by which the class is a supertype, or a subtype, in the generalization. Without one: a new role
// with `create`, which the generalization owns; otherwise null.
VornGeneralizationRole* getSupertypeGeneralizationRole(VornGeneralization& generalization,
                                                       VornClass& supertype, bool create);
VornGeneralizationRole* getSubtypeGeneralizationRole(VornGeneralization& generalization, VornClass& subtype,
                                                     bool create);
