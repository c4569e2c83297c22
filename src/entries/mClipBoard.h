// Entries on the clipboard: copied as text, and pasted into a category, be it another one or another program's.
#pragma once

#include <QString>

#include <cstdint>
#include <functional>

class Categorie;
class MyLV;

/// Puts the selected entries on the clipboard; says so when there are none. `tmpFolder` is the folder of their images.
void CopierSelection(const MyLV& table, const QString& tmpFolder);

/// Asks which column of the text on the clipboard goes into which column, adds its entries, each so many times, and
/// copies their images into `tmpFolder`. `ajoutees` is called once they are in the table: the user may be asked about
/// images for long after that. False, without a word, when the clipboard holds no entries, and when the user gave up.
bool CollerEntrees(MyLV& table, const QString& tmpFolder, int16_t copies, const std::function<void()>& ajoutees = {});

/// The commands of a document. Its IlFautSauver becomes what CollerEntrees says, also false: after a paste that came to
/// nothing nobody is asked about earlier changes. It is meant.
void Coller(Categorie& doc);
/// Asks how many copies first; without an answer nothing happens.
void CollerParLot(Categorie& doc);
