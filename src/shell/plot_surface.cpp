#include "plot_surface.h"
