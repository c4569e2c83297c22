#include "output/CouperTexte.h"

#include "output/MesureDeTexte.h"

namespace {

/// The lines, of which the last one is being written.
class Lignes
{
public:
    Lignes(double largeur, const MesureDeTexte& mesure) : m_largeur(largeur), m_mesure(mesure) {}

    void Ajouter(QStringView mot)
    {
        if (EstTropLarge(mot)) {
            if (!m_courante.isEmpty())
                Ranger();
            m_courante.clear();
            AjouterParSignes(mot);
            return;
        }
        const qsizetype avant = m_courante.size();
        m_courante += u' ';
        m_courante += mot;
        if (!EstTropLarge(m_courante))
            return;
        m_courante.truncate(avant);
        Ranger();
        m_courante = mot.toString();
    }

    QStringList Prendre()
    {
        if (!m_courante.isEmpty())
            m_lignes.last() = m_courante;
        return m_lignes;
    }

private:
    bool EstTropLarge(QStringView texte) const { return m_mesure.Largeur(texte) > m_largeur; }

    void Ranger()
    {
        m_lignes.last() = m_courante;
        m_lignes.append(QString());
    }

    void AjouterParSignes(QStringView mot)
    {
        for (qsizetype i = 0; i < mot.size();) {
            const qsizetype taille = mot[i].isHighSurrogate() && i + 1 < mot.size() ? 2 : 1;
            const QStringView signe = mot.sliced(i, taille);
            i += taille;
            const qsizetype avant = m_courante.size();
            m_courante += signe;
            if (!EstTropLarge(m_courante))
                continue;
            m_courante.truncate(avant);
            Ranger();
            m_courante = signe.toString();
        }
        if (!m_courante.isEmpty())
            Ranger();
        m_courante.clear();
    }

    double m_largeur;
    const MesureDeTexte& m_mesure;
    QStringList m_lignes = {QString()};
    QString m_courante;
};

} // namespace

QStringList CouperTexte(const QString& texte, double largeur, const MesureDeTexte& mesure)
{
    Lignes lignes(largeur, mesure);
    // A text without a character has no word, and not an empty one.
    if (!texte.isEmpty()) {
        for (const QStringView mot : QStringView(texte).tokenize(u' '))
            lignes.Ajouter(mot);
    }
    return lignes.Prendre();
}
