// How commands print tables.
#pragma once

#include "catalogue/table/MyLV.h"

#include <QByteArray>

class Json;
class SortieStandard;

/// So many bytes are gathered before they go out.
constexpr qsizetype TailleMorceau = 1 << 16;

/// The titles in one line and one line an entry, fields separated by tabs.
void ListerEnTexte(const MyLV& table, SortieStandard& sortie);

/// Begins the object of an entry: its key, values, image and icon. `tampon` is room for one value, made once.
void EcrireEntree(Json& json, const MyLV& table, int place, QByteArray& tampon);
