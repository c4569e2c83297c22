// The directory at the end of an archive, as its bytes; for the files of ccZip alone.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <functional>

namespace zipinterne {

struct Repertoire
{
    QByteArray octets;
    uint64_t place = 0; ///< where they stand in the archive
    qint64 nombre = 0;  ///< how many entries are announced
};

/// An entry at the front of a directory's bytes.
struct EntreeDeRepertoire
{
    uint16_t drapeaux = 0;
    QByteArrayView nom;
    QByteArrayView commentaire;
    qsizetype taille = 0; ///< of all of it; 0 when no entry stands there
};
EntreeDeRepertoire LireEntree(QByteArrayView octets);

/// Opens the archive and offers each directory that an end record announces, the last first, until one is taken.
void ChercherRepertoire(const QString& chemin, const std::function<bool(const Repertoire&)>& prendre);

} // namespace zipinterne
