#include "mode_editor_window.h"
