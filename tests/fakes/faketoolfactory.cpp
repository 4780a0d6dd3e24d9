#include "faketoolfactory.h"
