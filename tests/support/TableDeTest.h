// Builds tables and documents for tests.
#pragma once

#include "catalogue/texte/Categorie.h"
#include "support/DossierDeTest.h"

#include <QStringList>

#include <initializer_list>

/// A table with the titles, one inch wide each.
void MettreColonnes(MyLV& table, const QStringList& titres);
/// Adds entries with keys "k1", "k2" … behind those there are; one value a column.
void AjouterEntrees(MyLV& table, std::initializer_list<QStringList> entrees);
/// Texts of a column (from 1) in display order.
QStringList ColonneDe(const MyLV& table, int colonne);
QStringList ClesDe(const MyLV& table);

/// A document with a table and a folder of its own.
class DocumentDeTest
{
public:
    DocumentDeTest() { doc.TmpFolder = dossier.Chemin(); }

    /// Writes "Zelvane.qrt" into the folder and loads it.
    void Charger(const QByteArray& texte);

    DossierDeTest dossier;
    Categorie doc;
    MyLV& table = doc.Table;
};

/// The text of a small catalogue: the lines to "[ListItems]" with the given lines for sort, columns and entries.
struct TexteDeCatalogue
{
    QByteArray grille = "1";
    QByteArray trie = "1";
    QByteArray cleDeTri = "0";
    QByteArray sensDeTri = "0";
    QByteArray vue = "3";
    QByteArray version = "2";
    QList<QByteArray> colonnes = {"Titre|1000|", "Prêté|600|"};
    QByteArray nombreDeColonnes; ///< the count of `colonnes` when empty
    QByteArray dependante = "0";
    QList<QByteArray> entrees;
    QByteArray nombreDEntrees; ///< the count of `entrees` when empty

    /// In Windows-1252; the members are UTF-8.
    QByteArray Texte() const;
};
