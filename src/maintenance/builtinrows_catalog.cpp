#include "builtinrows_catalog.h"

Steps closingDateRowSteps() { return {}; }
Steps administratorRowSteps() { return {}; }
Steps reportHeaderRowSteps() { return {}; }
Steps configTableSteps() { return {}; }
