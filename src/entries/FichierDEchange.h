// The file in which a text for the clipboard is built: "~qrtCopier.tmp" in the program's folder.
//
// Every copy has a file of its own behind that name, which a later one takes: two programs that copy at once never mix
// their texts. A link that stands there is replaced and not followed, a folder stays.
#pragma once

#include "base/Message.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QFile>
#include <QString>

class FichierDEchange
{
public:
    /// Makes the file anew; one that stands there is replaced.
    FichierDEchange();
    /// Without Terminer the file stays with what was written.
    ~FichierDEchange();
    FichierDEchange(const FichierDEchange&) = delete;
    FichierDEchange& operator=(const FichierDEchange&) = delete;

    /// UTF-8. What the file cannot take is kept all the same.
    void Ecrire(QByteArrayView utf8);
    /// Closes the copy: reads the file back and deletes it. Returns all that was written, whatever became of the file.
    QString Terminer();

    /// The file could not be made, written or read back.
    bool AEchoue() const { return m_echec; }
    /// What the user is told then.
    static Message AvisDEchec();

    /// Its full path.
    static QString Chemin();

private:
    bool Creer();
    void Vider();
    bool RelireEstBon();
    void Supprimer();

    QByteArray m_texte; // all of it: the copy does not depend on the disk
    qsizetype m_ecrits = 0;
    QFile m_fichier;
    bool m_echec = false;
    bool m_fini = false;
};

/// Puts all that was written on the clipboard, and says so when the file failed.
void PoserSurPressePapiers(FichierDEchange& fichier);
