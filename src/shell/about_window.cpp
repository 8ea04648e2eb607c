#include "about_window.h"
