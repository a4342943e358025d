// What writers make of a model, and whether it has the form of its format whatever the model's texts are.
#pragma once

#include <string>

#include "support.h"

class VornStoreModel;
struct VornOutputFormat;

std::string writeToText(VornStoreModel& model, const VornOutputFormat& format);

// Takes the choices of an output format.
VornOutputFormat takeFormat(Bytes& bytes);

// Writes the model in every format, with those choices, and requires that nothing in the texts of the model
// gets out of where it stands: a comment, a literal, a name, a cell.
void checkEveryOutput(VornStoreModel& model, VornOutputFormat format);
