#include "lending/Contacts.h"

#include "base/Const_Vrac.h"
#include "base/Nombres.h"
#include "platform/PageDeCode.h"
#include "platform/Plateforme.h"
#include "platform/TexteIni.h"

#include <QByteArrayView>

#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView Prefixe("nom");
constexpr qint64 PlusGrandNumero = 999'999'999'999'999; // more digits are no number that a record has

QString Section()
{
    return u"Preter"_s;
}

bool CommenceParPrefixe(QByteArrayView cle)
{
    return cle.size() > Prefixe.size() &&
           qstrnicmp(cle.data(), Prefixe.data(), static_cast<size_t>(Prefixe.size())) == 0;
}

/// The number of a record by its key: "Nom12" is 12. Nothing for other keys, "Nom012" among them.
std::optional<qint64> NumeroDe(QByteArrayView cle)
{
    if (!CommenceParPrefixe(cle))
        return std::nullopt;
    const QByteArrayView chiffres = cle.sliced(Prefixe.size());
    if (chiffres.size() > 15 || chiffres.front() == '0' ||
        !std::ranges::all_of(chiffres, [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    return chiffres.toLongLong();
}

/// One key "NomN".
struct Enregistrement
{
    qint64 numero;
    QString valeur;
    bool entier; ///< all of it could be read
};

/// The section as it stands in the file, with records in the order of their numbers, each number once.
struct SectionLue
{
    std::optional<QString> compte;
    std::vector<Enregistrement> enregistrements;
    bool lisible = true;
};

SectionLue LireSection(const QString& fichier)
{
    SectionLue lue;
    lue.lisible =
        plateforme().ini->ParcourirSection(fichier, Section(), [&lue](QByteArrayView cle, QByteArrayView valeur) {
            if (const std::optional<qint64> numero = NumeroDe(cle))
                lue.enregistrements.push_back(
                    {*numero, TexteIni::Valeur(valeur), valeur.size() <= TexteIni::LongueurMax});
            else if (!lue.compte && cle.size() == 5 && qstrnicmp(cle.data(), "count", 5) == 0)
                lue.compte = TexteIni::Valeur(valeur);
        });
    const auto parNumero = [](const Enregistrement& a, const Enregistrement& b) { return a.numero < b.numero; };
    // Of two with one number the first one counts.
    std::stable_sort(lue.enregistrements.begin(), lue.enregistrements.end(), parNumero);
    const auto memes = [](const Enregistrement& a, const Enregistrement& b) { return a.numero == b.numero; };
    lue.enregistrements.erase(std::unique(lue.enregistrements.begin(), lue.enregistrements.end(), memes),
                              lue.enregistrements.end());
    return lue;
}

qint64 CompteDe(const SectionLue& lue)
{
    const double compte = std::trunc(Val(lue.compte.value_or(u"0"_s)));
    return static_cast<qint64>(std::clamp(compte, 0.0, static_cast<double>(PlusGrandNumero - 1)));
}

/// Whether the count is one that the program writes: digits.
bool EstSain(const std::optional<QString>& compte)
{
    return compte && !compte->isEmpty() && std::ranges::all_of(*compte, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

void OterLectureSeule(const QString& fichier)
{
    if (plateforme().attributs->EstLectureSeule(fichier))
        plateforme().attributs->MettreLectureSeule(fichier, false);
}

QString TexteDe(const Contact& contact)
{
    return contact.nom + u'|' + contact.email;
}

QString CleDe(qint64 numero)
{
    return u"Nom"_s + QString::number(numero);
}

} // namespace

ContactsLus LireContacts(const QString& fichier)
{
    const SectionLue lue = LireSection(fichier);
    ContactsLus contacts;
    contacts.compte = CompteDe(lue);
    contacts.contacts.reserve(lue.enregistrements.size());
    qint64 vus = 0;
    for (const Enregistrement& enregistrement : lue.enregistrements) {
        if (enregistrement.numero > contacts.compte) {
            // Left by a longer list, unless the count lies.
            contacts.manquants += EstSain(lue.compte) ? 0 : 1;
            contacts.aPerdre = contacts.aPerdre || !EstSain(lue.compte);
            continue;
        }
        ++vus;
        const QStringList morceaux = enregistrement.valeur.split(u'|');
        const bool lu = morceaux.size() > 1 && enregistrement.entier;
        if (lu)
            contacts.contacts.push_back({morceaux[0], morceaux[1]});
        contacts.manquants += lu ? 0 : 1;
        contacts.aPerdre = contacts.aPerdre || !lu || morceaux.size() > 2; // what stands behind a second bar goes
    }
    contacts.manquants += contacts.compte - vus;
    contacts.lisible = lue.lisible;
    contacts.aPerdre = contacts.aPerdre || !lue.lisible;
    return contacts;
}

bool EcrireContacts(const QString& fichier, const std::vector<Contact>& contacts)
{
    OterLectureSeule(fichier);
    TexteIni::Cles cles;
    cles.reserve(contacts.size() + 1);
    cles.emplace_back(u"count"_s, QString::number(contacts.size()));
    for (size_t i = 0; i < contacts.size(); ++i)
        cles.emplace_back(CleDe(static_cast<qint64>(i) + 1), TexteDe(contacts[i]));
    return plateforme().ini->EcrireCles(fichier, Section(), cles);
}

IssueInscription InscrireContact(const QString& fichier, const Contact& contact,
                                 const std::function<bool()>& accepterPerte)
{
    const SectionLue lue = LireSection(fichier);
    const qint64 compte = CompteDe(lue);
    OterLectureSeule(fichier);
    // As the file gives it back: what it cannot hold would make somebody new of him each time.
    const QString texte = TexteIni::CommeRelue(TexteDe(contact));
    const auto estLui = [&](const Enregistrement& e) { return e.numero <= compte && e.valeur == texte; };
    if (std::ranges::any_of(lue.enregistrements, estLui))
        return IssueInscription::Connu;
    const auto estLa = [&](const Enregistrement& e) { return e.numero == compte + 1; };
    if (!EstSain(lue.compte) && std::ranges::any_of(lue.enregistrements, estLa) && !accepterPerte())
        return IssueInscription::Laisse;
    const TexteIni::Cles cles{{u"Count"_s, QString::number(compte + 1)}, {CleDe(compte + 1), TexteDe(contact)}};
    return plateforme().ini->EcrireCles(fichier, Section(), cles) ? IssueInscription::Inscrit
                                                                  : IssueInscription::Impossible;
}

void CreerFichierDesContacts(const QString& fichier)
{
    CreerIni(fichier, u"[FileInfo]\r\nType=QRT INI FILE\r\nVersion=2\r\n\r\n[Preter]\r\ncount=0\r\n"_s);
}
