#include "report_options_window.h"
