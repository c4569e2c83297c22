// A file that is written beside the one that is wanted and takes its place once it is whole: what was there before
// stays until then, and for good when anything fails.
#pragma once

#include "Fin.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

class Brouillon
{
public:
    /// A name of its own in the folder of `definitif`, that of the file it leads to where that is a link. Nothing is
    /// made yet.
    explicit Brouillon(const QString& definitif);
    /// What was made under that name goes, unless it has taken its place.
    ~Brouillon();
    Brouillon(const Brouillon&) = delete;
    Brouillon& operator=(const Brouillon&) = delete;

    /// Makes it, where a file may be put into that place.
    Fin Ouvrir();
    Fin Ecrire(QByteArrayView octets);
    /// Leaves it to somebody else to write it on, or anew.
    void Fermer();
    /// The bytes of its name.
    const QByteArray& Chemin() const { return m_chemin; }
    /// Has every byte on the disk, then renames it, with the rights that the earlier file had.
    Fin Deposer();

private:
    Fin Examiner() const;

    QByteArray m_definitif;
    QByteArray m_chemin;
    int m_descripteur = -1;
};

/// What an error number of the system says of a file that cannot be written.
Fin FinDeLErreur(int numero);

/// The bytes of a path: one that is not UTF-8 stands in it as a low surrogate without its high one, U+DC80 to U+DCFF.
QByteArray OctetsDuNom(const QString& chemin);
