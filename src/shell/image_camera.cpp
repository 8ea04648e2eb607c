#include "image_camera.h"
