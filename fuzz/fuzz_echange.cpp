// Exchange texts: whatever comes in, the entries are those that a plain look at one line after the other finds, no
// value has a second line, and what was pasted can be copied again.
//
// An input is one byte and the text in UTF-8. The low two bits of the byte and one are the columns of the category; the
// third bit has the entries dropped instead of pasted; the next two bits and one are the copies; the others turn the
// sources against the columns.
#include "Commun.h"

#include "base/Avancement.h"
#include "entries/AjouterEchange.h"
#include "entries/Echange.h"
#include "platform/Plateforme.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdint>

namespace {

constexpr qsizetype TitresAuPlus = 100;

/// A value as the table holds it.
QString Nettoye(QString texte)
{
    texte.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    for (const char16_t c : {u'\r', u'\n', u'\0', u'\u2028', u'\u2029'})
        texte.replace(QChar(c), u' ');
    return texte;
}

QString NomNettoye(QString nom)
{
    bool aNettoyer = false;
    for (const QChar c : nom)
        aNettoyer = aNettoyer || c == u'|' || c == u'\r' || c == u'\n' || c == u'\0';
    for (QChar& c : nom)
        c = aNettoyer && (c == u'|' || c.category() == QChar::Other_Control) ? QChar(u'_') : c;
    return nom;
}

/// What column `colonne` (from 1) of the entry is to hold.
QString Attendu(const QStringList& champs, qsizetype source, int colonne, bool deposee)
{
    const qsizetype dernier = champs.size() - 1;
    const bool dedans = source >= 0 && (deposee || colonne == 1 ? source <= dernier : source < dernier);
    if (!dedans)
        return {};
    return champs[source];
}

struct Reglage
{
    int colonnes;
    bool deposee;
    int copies;
    int tours;
};

void Preparer(MyLV& table, const Reglage& reglage)
{
    for (int i = 1; i <= reglage.colonnes; ++i)
        table.ColumnHeaders.Add(0, QString::number(i));
    table.ListItems.Add(0, QStringLiteral("k1"), QStringLiteral("avant"));
}

void Comparer(const MyLV& table, const QStringList& lignes, const Correspondance& rangs, const Reglage& reglage)
{
    int index = 1;
    for (const QString& ligne : lignes) {
        const QStringList champs = ligne.split(u'\t');
        for (int copie = 0; copie < reglage.copies; ++copie) {
            const ListItemLu entree = table.ListItems(++index);
            Verifier(bool(entree), "an entry is missing");
            Verifier(entree.Selected() == (copie == 0), "the first of its copies is selected");
            for (int c = 1; c <= reglage.colonnes; ++c) {
                const QString voulu = Attendu(champs, rangs.Source(c) - 1, c, reglage.deposee);
                const bool estImage = !reglage.deposee && rangs.Source(c) == champs.size();
                Verifier(estImage || entree.Valeur(c) == Nettoye(voulu), "a value is another one");
                Verifier(!entree.Valeur(c).contains(u'\n') && !entree.Valeur(c).contains(u'\r'),
                         "a value has more than one line");
            }
            const QString image = reglage.deposee ? QString() : NomNettoye(champs.last());
            Verifier(reglage.deposee ? entree.Tag().isEmpty() : entree.Tag().size() == image.size(), "the image");
        }
    }
    Verifier(table.ListItems.Count() == index, "more entries than lines");
}

void Essayer(const QString& texte, const Reglage& reglage)
{
    const EchangeLu echange(texte);
    const QStringList elements = texte.split(QStringLiteral("\r\n"));
    Verifier(echange.EstEchange() == (elements[0] == QStringLiteral("[Zelvane]") && !elements.value(1).isEmpty()),
             "the kind of the text");
    const QStringList lignes = elements.size() > 3 ? elements.mid(2, elements.size() - 3) : QStringList();
    Verifier(echange.Entrees() == lignes.size(), "the count of lines");
    const QStringList titres = reglage.deposee ? echange.Champs() : echange.Titres();
    if (titres.size() > TitresAuPlus)
        return;

    MyLV table;
    Preparer(table, reglage);
    QStringList cibles;
    for (int i = 1; i <= reglage.colonnes; ++i)
        cibles.append(QString::number(i));
    Correspondance rangs = Correspondre(titres, cibles);
    std::rotate(rangs.departs.begin(), rangs.departs.begin() + reglage.tours % std::max<qsizetype>(rangs.Rangs(), 1),
                rangs.departs.end());
    SansAvancement sans;
    const Arrivee arrivee = reglage.deposee ? Arrivee::Deposees : Arrivee::Collees;
    AjouterEchange(table, echange, rangs, {arrivee, reglage.copies}, sans);
    Comparer(table, lignes, rangs, reglage);

    table.Selectionner(1, table.ListItems.Count(), true);
    const EchangeLu recopie(TexteDEchange(table, QStringLiteral("/d/")));
    Verifier(recopie.EstEchange() && recopie.Entrees() == table.ListItems.Count(), "what was pasted is copied again");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* octets, size_t taille)
{
    static int arguments = 0;
    static const QCoreApplication application(arguments, nullptr);
    static const PlateformeReelle reelle;
    if (taille == 0)
        return 0;
    const uint8_t choix = octets[0];
    const QByteArrayView texte(octets + 1, static_cast<qsizetype>(taille - 1));
    Essayer(QString::fromUtf8(texte), {(choix & 3) + 1, (choix & 4) != 0, (choix >> 3 & 3) + 1, choix >> 5});
    return 0;
}
