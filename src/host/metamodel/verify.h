// verifyModel: whether a model is consistent.
#pragma once

#include <string>
#include <vector>

class VornStoreModel;

enum class VornModelState {
  complete,    // nothing refers to an object outside the model
  incomplete,  // objects may refer to others that are not in the model yet
};

// Checks that each link is stored in both its ends, that objects are owned by the object that holds them, and
// that keys, indexes and their members belong together. Returns one text per problem.
std::vector<std::string> verifyModel(VornStoreModel& model, VornModelState state = VornModelState::complete);
