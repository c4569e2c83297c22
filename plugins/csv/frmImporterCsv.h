// The window in which the user tells how a table of text is to be read, beside its first rows as they will be.
#pragma once

#include "ModelesCsv.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QTableView;

class frmImporterCsv : public QDialog
{
    Q_OBJECT

public:
    /// `texte` (not owned): what stands in the file `chemin`.
    frmImporterCsv(QIODevice& texte, const QString& chemin, QWidget* parent = nullptr);

    /// What the user has chosen.
    PlanCsv Plan() const { return {m_format, m_colonnes.Colonnes()}; }

private:
    void Composer();
    QWidget* ComposerChoix();
    QWidget* ComposerListes();
    void Relier();
    void Montrer(const FormatCsv& format);
    void ChangerCodage();
    void ChangerFormat();
    void Relire();
    void Juger();

    QIODevice& m_texte;
    QString m_extension; ///< in small letters
    QString m_dossier;   ///< with its trailing separator
    FormatCsv m_format;
    bool m_formatChoisi = false; ///< by the user: nothing is guessed any more
    ApercuCsv m_apercu;
    ModeleColonnesCsv m_colonnes;
    ModeleApercuCsv m_lignes;

    QComboBox* m_codage;
    QComboBox* m_separateur;
    QLineEdit* m_autre;
    QComboBox* m_guillemet;
    QCheckBox* m_entete;
    QTableView* m_listeColonnes;
    QTableView* m_listeLignes;
    QLabel* m_note;
    QDialogButtonBox* m_boutons;
};
