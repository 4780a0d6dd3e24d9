#include "fakeoptionpage.h"
