#include "dir_list_window.h"
