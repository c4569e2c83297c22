// Copy and paste of entries as text. The commands are not there yet.
#pragma once

#include <QString>

#include <cstdint>

class MyLV;

/// Copies the selected entries of `table`, whose document has the folder `tmpFolder`.
void CopierSelection(MyLV& table, const QString& tmpFolder);
/// Pastes what was copied, each entry `copies` times. True when entries were added.
bool CollerEntrees(MyLV& table, const QString& tmpFolder, int16_t copies);
