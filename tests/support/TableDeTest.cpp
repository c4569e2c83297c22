#include "support/TableDeTest.h"

#include "catalogue/texte/LectureQrt.h"
#include "platform/PageDeCode.h"

void MettreColonnes(MyLV& table, const QStringList& titres)
{
    for (const QString& titre : titres)
        table.ColumnHeaders.Add(0, titre);
}

void AjouterEntrees(MyLV& table, std::initializer_list<QStringList> entrees)
{
    for (const QStringList& valeurs : entrees) {
        const QString cle = QStringLiteral("k%1").arg(table.ListItems.Count() + 1);
        ListItem entree = table.ListItems.Add(0, cle, valeurs.first());
        for (int i = 1; i < valeurs.size(); ++i)
            entree.SetSubItems(i, valeurs[i]);
        entree.SetSmallIcon(QStringLiteral("noico"));
    }
}

QStringList ColonneDe(const MyLV& table, int colonne)
{
    QStringList textes;
    for (int i = 1; i <= table.ListItems.Count(); ++i)
        textes.append(table.ListItems(i).Valeur(colonne));
    return textes;
}

QStringList ClesDe(const MyLV& table)
{
    QStringList cles;
    for (int i = 1; i <= table.ListItems.Count(); ++i)
        cles.append(table.ListItems(i).Key());
    return cles;
}

void DocumentDeTest::Charger(const QByteArray& texte)
{
    dossier.Ecrire(QStringLiteral("Zelvane.qrt"), texte);
    ChargerFichier(doc);
}

QByteArray TexteDeCatalogue::Texte() const
{
    const auto compte = [](const QByteArray& donne, qsizetype n) {
        return donne.isEmpty() ? QByteArray::number(n) : donne;
    };
    QByteArray texte =
        Lignes({"[FileInfo]", "Type=QRT FILE", "Version=" + version, "", "[ListView]", "GridLines=" + grille,
                "Sorted=" + trie, "SortKey=" + cleDeTri, "SortOrder=" + sensDeTri, "View=" + vue, "", "[ColumHeaders]",
                "Count=" + compte(nombreDeColonnes, colonnes.size())});
    for (qsizetype i = 0; i < colonnes.size(); ++i)
        texte += "Colum" + QByteArray::number(i + 1) + "=" + colonnes[i] + "\r\n";
    texte += Lignes({"Dependant=" + dependante, "", "[ListItems]", "Count=" + compte(nombreDEntrees, entrees.size())});
    for (qsizetype i = 0; i < entrees.size(); ++i)
        texte += "It" + QByteArray::number(i + 1) + "=" + entrees[i] + "\r\n";
    return PageDeCode::VersOctets(QString::fromUtf8(texte));
}
