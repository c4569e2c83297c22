// Brings a table of text into the table of a document, some thousand rows at a time.
#pragma once

#include "LecteurCsv.h"
#include "ValeurCsv.h"

#include <ZelvanePlugin.h>

#include <QHash>

#include <vector>

enum class UsageCsv { Prendre, Laisser, Image };

/// What is to become of a file's columns.
struct ColonneCsv
{
    QString titre;
    UsageCsv usage = UsageCsv::Prendre;
};

struct PlanCsv
{
    FormatCsv format;
    QList<ColonneCsv> colonnes;
};

/// A row of the file that the user is to hear of.
struct LigneSignalee
{
    qint64 numero;    ///< of its line
    int position;     ///< of its entry in the table, from 1
    unsigned defauts; ///< see DefautCsv
    QString image;    ///< the path of an image that could not be taken
};

struct BilanCsv
{
    qint64 lignes = 0; ///< of the file, without its titles and empty ones
    qint64 vides = 0;
    qint64 images = 0; ///< entries that have one
    qint64 illisibles = 0;
    RemplacesCsv remplaces;
    bool interrompu = false; ///< the file could not be read to its end
    std::vector<LigneSignalee> signalees;

    /// All that was in the file is in the table.
    bool EstSansReserve() const { return illisibles == 0 && remplaces.Aucun() && !interrompu && signalees.empty(); }
};

/// What is wrong with a row, in words for the user.
QString RaisonDe(const LigneSignalee& ligne);

class ImportCsv
{
public:
    /// `dossier`: that of the file, with its trailing separator, where paths of images begin.
    ImportCsv(QIODevice& texte, PlanCsv plan, QString dossier, QObject* document);

    /// Brings some thousand rows more; false once all are there, or the document takes none.
    bool Avancer();
    /// The document did not take what it was given.
    bool EstRefuse() const { return m_refuse; }
    const BilanCsv& Bilan() const { return m_bilan; }

    /// Takes the entries of rows with defects out again.
    void RetirerDefectueuses();

private:
    void Prendre(LigneCsv& ligne);
    QString Image(const QString& chemin);
    bool Livrer();

    PlanCsv m_plan;
    QString m_dossier;
    QObject* m_document;
    zelvane::Table m_table;
    LecteurCsv m_lecteur;
    BilanCsv m_bilan;
    QList<qsizetype> m_prises; ///< the columns that are taken, from 0
    qsizetype m_colonneImage = -1;
    QHash<QString, QString> m_images; ///< names in the document, by files
    QStringList m_cellules;
    QStringList m_marques;
    int m_livrees = 0; ///< entries in the table
    bool m_enteteLue = false;
    bool m_refuse = false;
};
