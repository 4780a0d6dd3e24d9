#include "nointerfaceplugin.h"
