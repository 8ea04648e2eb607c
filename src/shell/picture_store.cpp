#include "picture_store.h"
