// Replacing a file in one step: the bytes go to a temporary file beside it, which is renamed
// over the old one only when everything was written, so that a full disk, a crash or a kill
// in the middle leaves the old file whole.
#pragma once

#include <QString>

#include <string>

namespace tarvelle {

// True when path now holds bytes; otherwise the old file (if any) is untouched and error says
// why, in the system's words.
bool SaveFileAtomically(const QString& path, const std::string& bytes, QString& error);

} // namespace tarvelle
