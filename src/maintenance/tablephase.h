#pragma once

#include "step.h"

// Every table and column in the binding order, with the built-in rows and the
// progress marks at their places: from tblCareOf to the configuration stamp.
Steps tablePhaseSteps();
