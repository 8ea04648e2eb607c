#include "page_printer.h"
