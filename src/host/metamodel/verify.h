// The verifier: whether a model hangs together. Run by tests after every import and by debug builds before a
// model is saved.
#pragma once

#include <string>
#include <vector>

class VornStoreModel;

// What is wrong with the model, a sentence each; empty when nothing is:
// - both entries of every link name each other and stand in ends that their objects have;
// - every object that something refers to belongs to this model;
// - a primary key belongs to its class, the index of a key to the key's class, and each of its members has a
//   column.
// The columns of keys and indexes may be those of other classes: nothing keeps an export from saying so.
// Names may be equal: those that differed in their bytes can become so when they are transcoded.
std::vector<std::string> verifyModel(VornStoreModel& model);
