#include "output/OptionsDImpression.h"

#include "base/Const_Vrac.h"
#include "base/Nombres.h"
#include "platform/PageDeCode.h"
#include "platform/Plateforme.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView LieuDesComparaisons = u"c:\\";
constexpr QStringView Section = u"Impression";

/// Readers take blanks and one pair of quotes away from the ends of a value.
QString Protege(const QString& valeur)
{
    const bool blancs = valeur != valeur.trimmed();
    const bool entreGuillemets =
        valeur.size() > 1 && valeur.front() == valeur.back() && (valeur.front() == u'"' || valeur.front() == u'\'');
    return blancs || entreGuillemets ? u"\"%1\""_s.arg(valeur) : valeur;
}

constexpr QLatin1StringView CleDeLargeur("ColWidth");

/// The place, from 0, of the column whose width a key tells.
std::optional<size_t> PlaceDeLargeur(QByteArrayView cle)
{
    const QByteArrayView chiffres = cle.sliced(std::min(cle.size(), CleDeLargeur.size()));
    if (cle.size() <= CleDeLargeur.size() || chiffres.front() < '1' || chiffres.front() > '9' ||
        qstrnicmp(cle.data(), CleDeLargeur.data(), static_cast<size_t>(CleDeLargeur.size())) != 0)
        return std::nullopt;
    bool estNombre = false;
    const qulonglong numero = chiffres.toULongLong(&estNombre);
    return estNombre ? std::optional<size_t>(numero - 1) : std::nullopt;
}

/// The key of the exact text of `cle`, which is UTF-8 with percent signs.
QString CleExacte(const QString& cle)
{
    return cle + u".utf8"_s;
}

} // namespace

OptionsDImpression::OptionsDImpression(const QString& dossier)
    : m_dossier(dossier == LieuDesComparaisons ? DossierProgramme() : dossier)
{
}

QString OptionsDImpression::Lire(const QString& cle, const QString& defaut) const
{
    return LireIni(FichierIni(), Section.toString(), cle, defaut);
}

void OptionsDImpression::Ecrire(const QString& cle, const QString& valeur) const
{
    EcrireIni(FichierIni(), Section.toString(), cle, valeur);
}

/// Another program that changed the text knows nothing of the exact one, which does not count then.
QString OptionsDImpression::LireTexte(const QString& cle, const QString& defaut) const
{
    const QString texte = Lire(cle, defaut);
    const QString exact =
        QString::fromUtf8(QByteArray::fromPercentEncoding(Lire(CleExacte(cle), QString()).toLatin1()));
    return !exact.isEmpty() && PageDeCode::VersTexte(PageDeCode::VersOctets(exact)) == texte ? exact : texte;
}

void OptionsDImpression::EcrireTexte(const QString& cle, const QString& valeur) const
{
    Ecrire(cle, Protege(valeur));
    if (!PageDeCode::EstRepresentable(valeur))
        Ecrire(CleExacte(cle), QString::fromLatin1(valeur.toUtf8().toPercentEncoding()));
    else
        plateforme().ini->SupprimerCle(FichierIni(), Section.toString(), CleExacte(cle));
}

double OptionsDImpression::AffImg() const
{
    return Val(Lire(u"AffImg"_s, u"1"_s));
}

double OptionsDImpression::ImgDefaut() const
{
    return Val(Lire(u"ImgDefaut"_s, u"0"_s));
}

void OptionsDImpression::EcrireImage(bool affichee, bool parDefaut) const
{
    Ecrire(u"AffImg"_s, BoolVersTexte(affichee));
    Ecrire(u"ImgDefaut"_s, BoolVersTexte(parDefaut));
}

QString OptionsDImpression::Titre() const
{
    return LireTexte(u"Titre"_s, u"Zelvane v2.2 by Morvenal"_s);
}

QString OptionsDImpression::Texte() const
{
    return LireTexte(u"Texte"_s, u"%titre% - %nb% %nomcat%"_s);
}

void OptionsDImpression::EcrireTextes(const QString& titre, const QString& texte) const
{
    EcrireTexte(u"Texte"_s, texte);
    EcrireTexte(u"Titre"_s, titre);
}

bool OptionsDImpression::SelectionSeule() const
{
    return Val(Lire(u"SelOnly"_s, u"0"_s)) == 1;
}

void OptionsDImpression::EcrireSelectionSeule(bool seule) const
{
    Ecrire(u"SelOnly"_s, BoolVersTexte(seule));
}

std::vector<double> OptionsDImpression::Largeurs(std::vector<double> largeurs) const
{
    std::vector<bool> lues(largeurs.size());
    plateforme().ini->ParcourirSection(FichierIni(), Section.toString(),
                                       [&](QByteArrayView cle, QByteArrayView valeur) {
                                           const std::optional<size_t> place = PlaceDeLargeur(cle);
                                           // Of two keys with one name the first one counts.
                                           if (!place || *place >= largeurs.size() || lues[*place])
                                               return;
                                           lues[*place] = true;
                                           largeurs[*place] = Val(TexteIni::Valeur(valeur));
                                       });
    for (double& largeur : largeurs)
        largeur = std::clamp(largeur, 0., LargeurMax);
    return largeurs;
}

void OptionsDImpression::EcrireLargeurs(const std::vector<double>& largeurs) const
{
    TexteIni::Cles cles;
    cles.reserve(largeurs.size());
    for (size_t i = 0; i < largeurs.size(); ++i)
        cles.emplace_back(CleDeLargeur + QString::number(i + 1), QString::number(largeurs[i], 'f', 3));
    plateforme().ini->EcrireCles(FichierIni(), Section.toString(), cles);
}

QString TexteDEntete(const QString& modele, const QString& titre, const QString& nombre, const QString& nomcat)
{
    QString texte = modele;
    texte.replace(u"%titre%"_s, titre, Qt::CaseInsensitive);
    texte.replace(u"%nb%"_s, nombre, Qt::CaseInsensitive);
    texte.replace(u"%nomcat%"_s, nomcat, Qt::CaseInsensitive);
    return texte;
}
