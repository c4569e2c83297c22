// The text of a copy while it is being made: lines in the file "~qrtCopier.tmp" of the program's folder, read back as a
// whole once they are there. In UTF-8, so that no character is lost on the way.
//
// All running programs of a user have that folder. Each one makes a file of its own under the name, writes no other and
// deletes no other, so that two copies at once never mix. Where the file cannot be made or written, the text is
// gathered all the same.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringView>

class FichierDEchange
{
public:
    /// Makes the file; what lies there under its name goes.
    FichierDEchange();
    /// The file stays unless it was read back.
    ~FichierDEchange() = default;
    FichierDEchange(const FichierDEchange&) = delete;
    FichierDEchange& operator=(const FichierDEchange&) = delete;

    /// Writes a line, without its end, which is CR LF.
    void EcrireLigne(QStringView ligne);
    /// Writes what stands for itself, line ends included.
    void Ecrire(QByteArrayView utf8);
    /// The whole text. The file is closed and deleted.
    QString Relire();

    const QString& Chemin() const { return m_chemin; }
    /// The file could not be made, written or read back. Nothing is lost.
    bool AEchoue() const { return m_echoue; }

private:
    bool Deposer();
    QByteArray LireFichier();
    void Supprimer();

    QString m_chemin;
    QFile m_fichier;
    QByteArray m_texte;
    qsizetype m_depose = 0; ///< bytes of the text that are in the file
    bool m_echoue = false;
};

/// Puts the whole text on the clipboard. Where the file failed, the user is told that nothing was lost.
void PoserSurPressePapiers(FichierDEchange& fichier);
