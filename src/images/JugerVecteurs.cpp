#include "images/JugerVecteurs.h"

#include "images/EnteteImage.h"

#include <QBuffer>
#include <QHash>
#include <QXmlStreamReader>

#include <algorithm>
#include <numeric>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int ElementsDessinesAuPlus = 20'000; // each may cover the whole picture: some milliseconds
constexpr int PoidsDUneImage = 16;
constexpr int ProfondeurAuPlus = 256; // drawing goes down as deep
constexpr int RenvoisALaSuite = 64;   // each is a call in a call
constexpr qint64 TexteDEntitesAuPlus = qint64(4) << 20;

/// What is drawn again where it stands may itself draw others again, so that few lines draw anything often: each
/// element weighs what drawing it once costs, with all that it draws again.
class Poids
{
public:
    /// An element begins; the elements come in the order of the file.
    void Commencer(const QXmlStreamReader& element)
    {
        m_ouverts.push_back(m_fins.size());
        m_fins.push_back(0);
        m_propres.push_back(element.name() == u"image" ? PoidsDUneImage : 1);
        // Drawn again is what either of these names.
        for (const QXmlStreamAttribute& attribut : element.attributes()) {
            if (attribut.name() == u"id")
                m_nommes[attribut.value().toString()].push_back(m_ouverts.back());
            if (attribut.name() == u"href" && element.name() == u"use")
                m_renvois.push_back({m_ouverts.back(), attribut.value().mid(1).toString()});
        }
    }
    void Finir()
    {
        m_fins[m_ouverts.back()] = m_fins.size();
        m_ouverts.pop_back();
    }
    int Profondeur() const { return static_cast<int>(m_ouverts.size()); }
    /// False where the whole weighs too much, or something draws itself.
    bool EstSupportable() { return m_fins.empty() || DUnElement(0, 0).has_value(); }

private:
    struct Renvoi
    {
        size_t element;
        QString nom;
    };

    std::optional<int> DUnElement(size_t element, int suite)
    {
        if (suite > RenvoisALaSuite)
            return std::nullopt;
        const auto debut = m_propres.begin() + static_cast<qsizetype>(element);
        const auto fin = m_propres.begin() + static_cast<qsizetype>(m_fins[element]);
        qint64 poids = std::accumulate(debut, fin, qint64(0));
        const auto premier = std::ranges::lower_bound(m_renvois, element, {}, &Renvoi::element);
        for (auto i = premier; i != m_renvois.end() && i->element < m_fins[element]; ++i) {
            const std::optional<int> repris = DUnNom(i->nom, suite + 1);
            if (!repris || (poids += *repris) > ElementsDessinesAuPlus)
                return std::nullopt;
        }
        return poids > ElementsDessinesAuPlus ? std::nullopt : std::optional(static_cast<int>(poids));
    }
    /// Names that several elements have are readers' choice: all of them count.
    std::optional<int> DUnNom(const QString& nom, int suite)
    {
        if (const auto connu = m_poids.constFind(nom); connu != m_poids.constEnd())
            return *connu;
        m_poids[nom] = std::nullopt; // until it is known: who comes back here draws itself
        qint64 poids = 0;
        for (const size_t element : m_nommes.value(nom)) {
            const std::optional<int> un = DUnElement(element, suite);
            if (!un || (poids += *un) > ElementsDessinesAuPlus)
                return std::nullopt;
        }
        return m_poids[nom] = static_cast<int>(poids);
    }

    std::vector<size_t> m_ouverts;
    std::vector<size_t> m_fins; ///< behind the last element that stands in this one
    std::vector<int> m_propres;
    std::vector<Renvoi> m_renvois;
    QHash<QString, std::vector<size_t>> m_nommes;
    QHash<QString, std::optional<int>> m_poids;
};

/// The pictures that stand in the text itself: those of the forms whose heads tell what they cost.
class ImagesIncluses
{
public:
    Aptitude Juger(const QXmlStreamReader& image)
    {
        for (const QXmlStreamAttribute& attribut : image.attributes()) {
            if (attribut.name() != u"href")
                continue;
            if (const Aptitude jugee = Juger(attribut.value()); jugee != Aptitude::Convertie)
                return jugee;
        }
        return Aptitude::Convertie;
    }

private:
    Aptitude Juger(QStringView adresse)
    {
        constexpr QStringView marque(u"base64,");
        const qsizetype debut = adresse.lastIndexOf(marque);
        if (!adresse.startsWith(u"data:image/") || debut < 0)
            return Aptitude::Illisible;
        QByteArray octets = QByteArray::fromBase64(adresse.mid(debut + marque.size()).toLatin1());
        QBuffer fichier(&octets);
        if (!fichier.open(QIODevice::ReadOnly))
            return Aptitude::Illisible;
        std::optional<EnteteImage> entete = LireEntete(fichier);
        if (!entete)
            return Aptitude::Illisible;
        entete->memoire = m_memoire += entete->memoire;
        return EstSupportable(*entete) ? Aptitude::Convertie : Aptitude::TropGrande;
    }

    qint64 m_memoire = 0;
};

/// Texts that the head of the file gives names, which stand in for them: a name for long ones makes a small file large.
bool EntitesSupportables(const QXmlStreamReader& lecteur, const QByteArray& octets)
{
    qsizetype longueur = 0;
    for (const QXmlStreamEntityDeclaration& entite : lecteur.entityDeclarations()) {
        if (entite.value().contains(u'&'))
            return false;
        longueur = std::max(longueur, entite.value().size());
    }
    return longueur * octets.count('&') <= TexteDEntitesAuPlus;
}

} // namespace

Aptitude JugerVecteurs(const QByteArray& octets)
{
    if (octets.size() > OctetsDeVecteursAuPlus)
        return Aptitude::TropGrande;
    Poids poids;
    ImagesIncluses images;
    QXmlStreamReader lecteur(octets);
    while (!lecteur.atEnd()) {
        switch (lecteur.readNext()) {
        case QXmlStreamReader::DTD:
            if (!EntitesSupportables(lecteur, octets))
                return Aptitude::TropGrande;
            break;
        case QXmlStreamReader::ProcessingInstruction:
            if (lecteur.processingInstructionTarget() == u"xml-stylesheet")
                return Aptitude::Illisible; // may be any file or pipe of this computer
            break;
        case QXmlStreamReader::StartElement:
            poids.Commencer(lecteur);
            if (poids.Profondeur() > ProfondeurAuPlus)
                return Aptitude::TropGrande;
            if (lecteur.name() != u"image")
                break;
            if (const Aptitude jugee = images.Juger(lecteur); jugee != Aptitude::Convertie)
                return jugee;
            break;
        case QXmlStreamReader::EndElement:
            poids.Finir();
            break;
        default:
            break;
        }
    }
    if (lecteur.hasError())
        return Aptitude::Illisible;
    return poids.EstSupportable() ? Aptitude::Convertie : Aptitude::TropGrande;
}
