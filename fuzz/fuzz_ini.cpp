// Ini files: any bytes can be read, what was written reads back, and no other line or key changes.
//
// An input is a section, a key, a value and the text of the file, separated by the byte 0x1E.
#include "platform/PageDeCode.h"
#include "platform/TexteIni.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

namespace {

void Verifier(bool vrai, const char* quoi)
{
    if (vrai)
        return;
    std::fprintf(stderr, "fuzz_ini: %s\n", quoi);
    std::abort();
}

/// Lines with their ends. Written without a look at how the code under test does it.
QList<QByteArray> Lignes(const QByteArray& texte)
{
    QList<QByteArray> lignes;
    QByteArray ligne;
    for (qsizetype i = 0; i < texte.size(); ++i) {
        ligne += texte[i];
        const bool suiviDeLf = i + 1 < texte.size() && texte[i + 1] == '\n';
        if (texte[i] == '\n' || (texte[i] == '\r' && !suiviDeLf)) {
            lignes.append(ligne);
            ligne.clear();
        }
    }
    if (!ligne.isEmpty())
        lignes.append(ligne);
    return lignes;
}

/// What a reader sees of a value that was written.
QString ValeurLue(const QString& valeur)
{
    QByteArray octets = PageDeCode::VersOctets(valeur);
    octets = octets.left(octets.contains('\0') ? octets.indexOf('\0') : octets.size());
    const auto blanc = [](char c) { return c == ' ' || c == '\t'; };
    while (!octets.isEmpty() && blanc(octets.front()))
        octets.remove(0, 1);
    while (!octets.isEmpty() && blanc(octets.back()))
        octets.chop(1);
    for (const char guillemet : {'"', '\''}) {
        if (octets.size() >= 2 && octets.front() == guillemet && octets.back() == guillemet) {
            octets = octets.mid(1, octets.size() - 2);
            break;
        }
    }
    return PageDeCode::VersTexte(octets.left(TexteIni::LongueurMax));
}

void VerifierLecture(const std::optional<QString>& valeur)
{
    if (!valeur)
        return;
    Verifier(valeur->size() <= 1024, "a value is too long");
    Verifier(!valeur->contains(QChar(0)), "a value holds a NUL");
    Verifier(!valeur->contains(u'\n') && !valeur->contains(u'\r'), "a value spans lines");
}

/// At most one line may go and two may come, in one place.
void VerifierVoisines(const QByteArray& avant, const QByteArray& apres)
{
    QList<QByteArray> a = Lignes(avant);
    QList<QByteArray> b = Lignes(apres);
    while (!a.isEmpty() && !b.isEmpty() && a.front() == b.front()) {
        a.removeFirst();
        b.removeFirst();
    }
    while (!a.isEmpty() && !b.isEmpty() && a.back() == b.back()) {
        a.removeLast();
        b.removeLast();
    }
    Verifier(a.size() <= 1, "a write removed more than one line");
    // The line without an end that stood last keeps its bytes and gets an end.
    const bool finie = a.size() == 1 && b.size() > 1 && b.front().startsWith(a.front());
    Verifier(b.size() <= (finie ? 3 : 2), "a write added more than a section and a key");
}

/// One piece may go, with no more than one line end in it.
void VerifierRetrait(const QByteArray& avant, const QByteArray& apres)
{
    const auto differe = std::mismatch(avant.begin(), avant.end(), apres.begin(), apres.end());
    const qsizetype debut = differe.first - avant.begin();
    const qsizetype taille = avant.size() - apres.size();
    Verifier(avant.sliced(debut + taille) == apres.sliced(debut), "removing a key changed what stands behind it");
    const QByteArray retire = avant.sliced(debut, taille);
    Verifier(retire.count('\n') <= 1 && retire.count('\r') <= 1, "removing a key removed another line");
}

/// Names of all sections and keys, as pairs to look up.
QList<std::pair<QString, QString>> Noms(const QByteArray& texte)
{
    QList<std::pair<QString, QString>> noms;
    QString section;
    for (const QByteArray& ligne : Lignes(texte)) {
        const QByteArray nue = ligne.trimmed();
        if (nue.startsWith('[') && nue.contains(']'))
            section = PageDeCode::VersTexte(nue.mid(1, nue.indexOf(']') - 1));
        else if (nue.contains('='))
            noms.append({section, PageDeCode::VersTexte(nue.left(nue.indexOf('=')))});
    }
    return noms.mid(0, 50);
}

bool MemeNom(const QString& a, const QString& b)
{
    const auto reduit = [](const QString& nom) {
        return PageDeCode::VersTexte(PageDeCode::VersOctets(nom)).trimmed().toCaseFolded();
    };
    return reduit(a) == reduit(b);
}

/// All keys of a section in one go are the same as one after the other.
void VerifierEnsemble(const QByteArray& texte, const QString& section, const QString& cle, const QString& valeur)
{
    const QString autre = QStringLiteral("Autre");
    const std::optional<QByteArray> un = TexteIni::Ecrire(texte, section, autre, valeur);
    Verifier(un && TexteIni::EcrireCles(texte, section, {{autre, valeur}, {cle, valeur}}) ==
                       TexteIni::Ecrire(*un, section, cle, valeur),
             "two keys in one go are not two keys");
    Verifier(TexteIni::CommeRelue(valeur) == ValeurLue(valeur), "what will be read is another value");
    QList<std::pair<QString, QString>> vues;
    TexteIni::Parcourir(texte, section, [&vues](QByteArrayView nom, QByteArrayView octets) {
        const auto meme = [&nom](const auto& vue) { return MemeNom(vue.first, PageDeCode::VersTexte(nom)); };
        if (std::none_of(vues.begin(), vues.end(), meme))
            vues.append({PageDeCode::VersTexte(nom), TexteIni::Valeur(octets)});
    });
    for (const auto& [nom, lue] : vues)
        Verifier(TexteIni::Lire(texte, section, nom) == lue, "a section gone through is another one");
}

void Essayer(const QByteArray& texte, const QString& section, const QString& cle, const QString& valeur)
{
    VerifierLecture(TexteIni::Lire(texte, section, cle));
    for (const auto& [s, c] : Noms(texte))
        VerifierLecture(TexteIni::Lire(texte, s, c));

    const std::optional<QByteArray> ecrit = TexteIni::Ecrire(texte, section, cle, valeur);
    if (!ecrit)
        return;
    Verifier(TexteIni::Lire(*ecrit, section, cle) == ValeurLue(valeur), "what was written does not read back");
    Verifier(TexteIni::Ecrire(*ecrit, section, cle, valeur) == *ecrit, "writing it again changes the file");
    VerifierVoisines(texte, *ecrit);
    VerifierEnsemble(texte, section, cle, valeur);
    for (const auto& [s, c] : Noms(texte)) {
        if (!MemeNom(s, section) || !MemeNom(c, cle))
            Verifier(TexteIni::Lire(texte, s, c) == TexteIni::Lire(*ecrit, s, c), "another key changed");
    }

    const QByteArray sansCle = TexteIni::SupprimerCle(*ecrit, section, cle);
    Verifier(sansCle.size() < ecrit->size(), "a key that was there was not removed");
    VerifierRetrait(*ecrit, sansCle);
    const QByteArray sansSection = TexteIni::SupprimerSection(*ecrit, section);
    Verifier(sansSection.size() < ecrit->size(), "a section that was there was not removed");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    QList<QByteArray> parties =
        QByteArray(reinterpret_cast<const char*>(octets), static_cast<qsizetype>(taille)).split('\x1E');
    parties.resize(std::max<qsizetype>(parties.size(), 4));
    const QByteArray texte = parties.mid(3).join('\x1E');
    Essayer(texte, PageDeCode::VersTexte(parties[0]), PageDeCode::VersTexte(parties[1]), QString::fromUtf8(parties[2]));
    return 0;
}
