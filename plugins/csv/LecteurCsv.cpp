#include "LecteurCsv.h"

#include <QIODevice>

#include <algorithm>
#include <limits>

namespace {

constexpr qsizetype Morceau = 1 << 20;
/// Characters between quotes; where they do not end by then, they are taken never to end.
constexpr qsizetype CiteAuPlus = 1 << 20;
constexpr qsizetype LigneAuPlus = 4 << 20;

bool EstFinDeLigne(QChar c)
{
    return c == u'\n' || c == u'\r';
}

/// Line ends within.
qint64 Sauts(QStringView texte)
{
    qint64 sauts = 0;
    for (qsizetype i = 0; i < texte.size(); ++i) {
        if (texte[i] == u'\n' || (texte[i] == u'\r' && (i + 1 == texte.size() || texte[i + 1] != u'\n')))
            ++sauts;
    }
    return sauts;
}

/// One row of a text. All that it takes is told apart from what it lacks: where the text ends before the row does, the
/// caller comes back with more of it.
class AnalyseDeLigne
{
public:
    AnalyseDeLigne(QStringView texte, bool fini, const FormatCsv& format, qsizetype champsAuPlus, LigneCsv& ligne)
        : m_texte(texte), m_fini(fini), m_format(format), m_champsAuPlus(champsAuPlus), m_ligne(ligne)
    {
    }

    /// Characters of the row and its end; 0 when the text does not hold all of it.
    qsizetype Lire()
    {
        for (;;) {
            m_ligne.champs.clear();
            m_ligne.nombre = 0;
            m_enTrop = 0;
            m_i = 0;
            m_cites = false;
            const Suite suite = LireChamps();
            if (suite != Suite::Encore)
                return suite == Suite::Fin ? m_i : 0;
        }
    }
    /// Quotes were among it, in which lines may end.
    bool ACites() const { return m_cites; }

private:
    enum class Suite { Fin, Manque, Encore };

    Suite LireChamps()
    {
        for (;;) {
            const Suite champ = EstGuillemet(m_i) && m_i < m_litteral ? LireCite() : LireNu(m_i);
            if (champ != Suite::Fin)
                return champ;
            if (m_i == m_texte.size())
                return m_fini ? Suite::Fin : Suite::Manque;
            const QChar c = m_texte[m_i++];
            if (c == m_format.separateur)
                continue;
            if (c == u'\r') {
                if (m_i == m_texte.size() && !m_fini)
                    return Suite::Manque;
                if (m_i < m_texte.size() && m_texte[m_i] == u'\n')
                    ++m_i;
            }
            return Suite::Fin;
        }
    }

    bool EstGuillemet(qsizetype i) const
    {
        return !m_format.guillemet.isNull() && i < m_texte.size() && m_texte[i] == m_format.guillemet;
    }

    void AllerAuBout()
    {
        const QChar* bout = std::find_if(m_texte.begin() + m_i, m_texte.end(),
                                         [this](QChar c) { return c == m_format.separateur || EstFinDeLigne(c); });
        m_i = bout - m_texte.begin();
    }

    Suite LireNu(qsizetype debut)
    {
        AllerAuBout();
        Ajouter(m_texte.sliced(debut, m_i - debut));
        return Suite::Fin;
    }

    Suite LireCite()
    {
        const qsizetype ouverture = m_i++;
        m_cites = true;
        QString valeur;
        for (;;) {
            const qsizetype fin = m_texte.indexOf(m_format.guillemet, m_i);
            if ((fin < 0 ? m_texte.size() : fin) - ouverture > CiteAuPlus || (fin < 0 && m_fini)) {
                // From here on quotes are characters.
                m_litteral = ouverture;
                m_ligne.defauts |= GuillemetOuvert;
                return Suite::Encore;
            }
            if (fin < 0 || (fin + 1 == m_texte.size() && !m_fini))
                return Suite::Manque;
            valeur += m_texte.sliced(m_i, fin - m_i);
            m_i = fin + 1;
            if (!EstGuillemet(m_i))
                break;
            valeur += m_format.guillemet;
            ++m_i;
        }
        const qsizetype apres = m_i;
        AllerAuBout();
        if (m_i > apres) {
            m_ligne.defauts |= TexteApresGuillemet;
            valeur += m_texte.sliced(apres, m_i - apres);
        }
        Ajouter(valeur);
        return Suite::Fin;
    }

    void Ajouter(QStringView valeur)
    {
        if (m_ligne.champs.size() < m_champsAuPlus) {
            m_ligne.champs.append(valeur.toString());
            ++m_ligne.nombre;
            return;
        }
        // Separators at the end of a line part nothing.
        ++m_enTrop;
        if (valeur.isEmpty())
            return;
        m_ligne.champs.last().append(QString(m_enTrop, m_format.separateur)).append(valeur);
        m_ligne.nombre += m_enTrop;
        m_enTrop = 0;
    }

    QStringView m_texte;
    bool m_fini;
    const FormatCsv& m_format;
    qsizetype m_champsAuPlus;
    LigneCsv& m_ligne;
    qsizetype m_i = 0;
    qsizetype m_enTrop = 0; ///< fields beyond the last that were empty so far
    qsizetype m_litteral = std::numeric_limits<qsizetype>::max();
    bool m_cites = false;
};

} // namespace

LecteurCsv::LecteurCsv(QIODevice& texte, const FormatCsv& format, qsizetype champsAuPlus)
    : m_source(texte), m_format(format), m_champsAuPlus(champsAuPlus), m_decodeur(format.codage)
{
    m_source.seek(0);
}

bool LecteurCsv::Lire(LigneCsv& ligne)
{
    for (;;) {
        const QStringView texte = QStringView(m_texte).sliced(m_debut);
        if (m_fini && texte.isEmpty())
            return false;
        if (!texte.isEmpty() && Analyser(texte, m_fini, ligne))
            return true;
        if (texte.size() >= LigneAuPlus)
            return Couper(texte, ligne);
        Remplir();
    }
}

bool LecteurCsv::Couper(QStringView texte, LigneCsv& ligne)
{
    const bool enPaire = texte[LigneAuPlus - 1].isHighSurrogate();
    const QStringView debut = texte.first(enPaire ? LigneAuPlus - 1 : LigneAuPlus);
    const qsizetype avant = m_debut;
    Analyser(debut, true, ligne);
    if (m_debut - avant == debut.size())
        ligne.defauts |= LigneCoupee;
    return true;
}

void LecteurCsv::Remplir()
{
    m_texte.remove(0, m_debut);
    m_debut = 0;
    // A row that goes on is looked at again: as often as its length doubles.
    m_octets.resize(std::max(Morceau, m_texte.size()));
    const qint64 lus = m_source.read(m_octets.data(), m_octets.size());
    m_texte += m_decodeur.Decoder(QByteArrayView(m_octets).first(std::max(lus, qint64{0})));
    if (lus <= 0) {
        m_interrompu = lus < 0;
        m_texte += m_decodeur.Finir();
        m_fini = true;
    }
}

bool LecteurCsv::Analyser(QStringView texte, bool fini, LigneCsv& ligne)
{
    ligne.defauts = SansDefaut;
    ligne.numero = m_numero;
    AnalyseDeLigne analyse(texte, fini, m_format, m_champsAuPlus, ligne);
    const qsizetype lus = analyse.Lire();
    if (lus == 0)
        return false;
    m_debut += lus;
    m_numero += analyse.ACites() ? Sauts(texte.first(lus)) : EstFinDeLigne(texte[lus - 1]) ? 1 : 0;
    return true;
}
