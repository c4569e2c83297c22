// The steps of the guinea pig: what a user does to documents, one after the other.
#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QString>

class CobayeReponses;
class FenetreDocument;
class Form1;
class MDIForm1;

/// Each step begins from the event loop once the one before has ended, as a user's clicks do, so that no event which
/// a step lets through begins another. "debut N" and "fin N ok" or "fin N non" are said around step N (from 1), and
/// "attend" behind the last one: the program then stays as it is.
///
/// One step a line, its arguments separated by blanks, of which the last may hold blanks itself. DOC counts the
/// documents from 1 in the order in which they were opened; ID is the text of an entry's first column.
///
///     ouvrir FILE
///     reprendre                opens all that an earlier run left behind, as the offer does
///     editer DOC SEED          every column of every entry but the first becomes "SEED-ID-column", in one go
///     appliquer DOC TEXT       the second column of all entries becomes TEXT, as the dialog for many entries does it
///     inscrire DOC ID          adds an entry
///     image DOC ID NAME FILE   FILE is the entry's image from here on, under NAME; one of that name is replaced
///     sans-image DOC ID        deletes the entry's image
///     sauver DOC
///     sauver-tout
///     sauver-sous DOC TYPE FILE  TYPE as in the dialog: 2 the archive, 3 the bare text
///     secours DOC              writes the rescue copy as a pause of the user does, piece by piece; "non" when no new
///     one was written secours-entier DOC       writes it at once fermer DOC oui|non       the answer to the question
///     about unsaved changes quitter oui|non lenteur MS               from here on a question stands open for so long
///     attendre MS
///     dire DOC                 says "etat JSON"
class CobayeEtapes : public QObject
{
public:
    CobayeEtapes(MDIForm1& cadre, CobayeReponses& reponses, const QList<QByteArray>& lignes);

    void Commencer();

private:
    struct Etape
    {
        QString nom;
        QString arguments;
        /// The first arguments; the last of `nombre` takes all that is left.
        QString Argument(int index, int nombre) const;
    };

    void Suivante();
    void Faire();
    void Finir(bool bien);

    bool FaireSurFichier(const Etape& etape);
    bool FaireSurDocument(const Etape& etape);
    bool Fermer(Form1& fenetre, const QString& reponse);
    bool Quitter(const QString& reponse);
    bool Reprendre();
    bool SauverSous(Form1& fenetre, const Etape& etape);
    void AvancerSecours(qint64 maintenant);

    MDIForm1& m_cadre;
    CobayeReponses& m_reponses;
    QList<Etape> m_etapes;
    qsizetype m_faites = 0;
    /// Null once closed. A window is known from the moment that it was opened.
    QList<Form1*> m_documents;
    qint64 m_tempsDuSecours = 0;
    quint64 m_copieAvant = 0; ///< the rescue copy's inode when the step began
};
