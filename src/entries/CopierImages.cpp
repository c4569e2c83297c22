#include "entries/CopierImages.h"

#include "base/Const_Vrac.h"
#include "extensions/langue/modLang.h"
#include "platform/NomsSysteme.h"
#include "platform/Presence.h"

using namespace Qt::StringLiterals;

namespace {

/// A bare name, as images have it: a text may name any file of a folder, and some of them are nobody's business.
bool EstNomSur(const QString& nom)
{
    const QString extension = ExtensionDe(nom);
    return NomTenable(nom) == nom && (EstNomDImage(nom) || extension == u"jpe" || extension == u"png");
}

/// A file, or nothing at all: no link, no folder, nothing that blocks who opens it.
bool EstFichierOuRien(const QString& chemin)
{
    return !EstLien(chemin) && (EstFichier(chemin) || !PeutExister(chemin));
}

class Copiste
{
public:
    Copiste(const QString& source, const QString& cible, QuestionsDImage& questions, const EntreDeuxPas& entreDeuxPas)
        : m_absolue(source.startsWith(u'/')), m_source(AjouterSlash(source)), m_cible(cible), m_questions(questions),
          m_entreDeuxPas(entreDeuxPas)
    {
    }

    /// False when it could not be copied; that the user does not want it is no failure.
    bool Copier(const QString& nom)
    {
        const QString de = m_source + nom;
        const QString vers = m_cible + nom;
        if (!m_absolue || !EstNomSur(nom) || !EstFichierOuRien(de) || !EstFichierOuRien(vers))
            return false;
        if (!EstFichier(vers))
            return CopierImage(de, vers, SiLeFichierExiste::Echouer);
        if (m_questions.Remplacer(vers, de))
            return CopierImage(de, vers, SiLeFichierExiste::Remplacer);
        if (!m_questions.Renommer())
            return true;
        return CopierImage(de, m_cible + NomLibre(m_cible, nom, m_entreDeuxPas), SiLeFichierExiste::Echouer);
    }

private:
    bool m_absolue;
    QString m_source;
    QString m_cible;
    QuestionsDImage& m_questions;
    const EntreDeuxPas& m_entreDeuxPas;
};

} // namespace

int CopierImages(const QStringList& noms, const QString& source, const QString& cible, QuestionsDImage& questions,
                 const EntreDeuxPas& entreDeuxPas)
{
    Copiste copiste(source, cible, questions, entreDeuxPas);
    int perdues = 0;
    for (const QString& nom : noms) {
        if (entreDeuxPas)
            entreDeuxPas();
        perdues += copiste.Copier(nom) ? 0 : 1;
    }
    return perdues;
}

void DireImagesNonCopiees(int nombre)
{
    if (nombre == 0)
        return;
    const Message message = LangMsg(u"msgImagesNonCopiees"_s,
                                    u"Images qui n'ont pas pu être copiées : %1. Les entrées ont été ajoutées."_s);
    AfficherMsg(message.Remplacer(u"%1"_s, QString::number(nombre)), MsgOk, QString());
}
