#include "event_report.h"
