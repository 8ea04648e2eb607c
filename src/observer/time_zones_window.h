// FormTimeZones: a picture of the world's time zones with a bar of zone cells along the
// bottom; a click on the bar picks a zone. SelectedTZ is 99 when none was picked.
#pragma once

#include <QDialog>

namespace tarvelle {

class FormTimeZones;

} // namespace tarvelle
