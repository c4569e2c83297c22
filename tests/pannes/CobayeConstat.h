// What a document holds, said so that the driver can compare it with what must be there.
#pragma once

#include <QByteArray>
#include <QStringList>

class Cadre;
class Categorie;

/// One line of JSON: "lignes", for each entry its values and its image's name, in display order; "fichiers", for each
/// file of the folder but the table's text its SHA-256 in hexadecimal.
QByteArray EtatDuDocument(const Categorie& doc);

/// What a start finds after another run ended, a line of JSON each: every folder that is offered ("secours", opened as
/// the offer opens it) and every file of `chemins` ("fichier"). "ouvert" is false where nothing could be opened. The
/// documents are left open in `cadre`.
void Constater(Cadre& cadre, const QStringList& chemins);
