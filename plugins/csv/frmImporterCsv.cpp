#include "frmImporterCsv.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QIODevice>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;
using zelvane::LangMsg;

namespace {

QLabel* Etiquette(const QString& texte, QWidget* de)
{
    auto* etiquette = new QLabel(texte);
    etiquette->setBuddy(de);
    de->setAccessibleName(QString(texte).remove(u'&').remove(u':').trimmed());
    return etiquette;
}

void Choisir(QComboBox& liste, const QVariant& donnee)
{
    const QSignalBlocker muet(liste);
    liste.setCurrentIndex(std::max(0, liste.findData(donnee)));
}

/// Columns as wide as they need, so that many are seen. Who has very many of them is not kept waiting.
void Ajuster(QTableView& liste)
{
    constexpr int colonnes = 100;
    const int lettre = liste.fontMetrics().averageCharWidth();
    const int nombre = std::min(colonnes, liste.model()->columnCount());
    for (int i = 0; i < nombre; ++i) {
        liste.resizeColumnToContents(i);
        liste.setColumnWidth(i, std::clamp(liste.columnWidth(i), 6 * lettre, 30 * lettre));
    }
}

/// A list fits into few lines where letters are large.
void Accommoder(QTableView& liste)
{
    liste.setWordWrap(false);
    liste.setTabKeyNavigation(false);
    liste.setMinimumHeight(6 * liste.fontMetrics().height());
    liste.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    liste.verticalHeader()->setDefaultSectionSize(liste.fontMetrics().height() + 6);
}

} // namespace

frmImporterCsv::frmImporterCsv(QIODevice& texte, const QString& chemin, QWidget* parent)
    : QDialog(parent), m_texte(texte), m_extension(QFileInfo(chemin).suffix().toLower()),
      m_dossier(QFileInfo(chemin).absolutePath() + u'/'), m_codage(new QComboBox), m_separateur(new QComboBox),
      m_autre(new QLineEdit), m_guillemet(new QComboBox), m_entete(new QCheckBox), m_listeColonnes(new QTableView),
      m_listeLignes(new QTableView), m_note(new QLabel),
      m_boutons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    Composer();
    Relier();
    Montrer(DevinerFormat(m_texte, m_extension));
}

void frmImporterCsv::Composer()
{
    setWindowTitle(LangMsg(u"plugCsvFenetre"_s, u"Importer un tableau"_s));
    setObjectName(u"frmImporterCsv"_s);
    m_codage->setObjectName(u"codage"_s);
    m_separateur->setObjectName(u"separateur"_s);
    m_autre->setObjectName(u"autre"_s);
    m_guillemet->setObjectName(u"guillemet"_s);
    m_entete->setObjectName(u"entete"_s);
    m_listeColonnes->setObjectName(u"colonnes"_s);
    m_listeLignes->setObjectName(u"apercu"_s);
    m_note->setObjectName(u"note"_s);
    m_note->setWordWrap(true);
    m_boutons->button(QDialogButtonBox::Ok)->setText(LangMsg(u"plugCsvOk"_s, u"Ok"_s));
    m_boutons->button(QDialogButtonBox::Cancel)->setText(LangMsg(u"plugCsvAnnuler"_s, u"Annuler"_s));

    auto* tout = new QVBoxLayout(this);
    tout->addWidget(ComposerChoix());
    tout->addWidget(ComposerListes(), 1);
    tout->addWidget(m_note);
    tout->addWidget(m_boutons);
    resize(sizeHint().expandedTo({130 * fontMetrics().averageCharWidth(), 32 * fontMetrics().height()}));
}

QWidget* frmImporterCsv::ComposerChoix()
{
    for (const CodageCsv codage : CodagesCsv())
        m_codage->addItem(NomDuCodage(codage), static_cast<int>(codage));
    m_separateur->addItem(LangMsg(u"plugCsvVirgule"_s, u"Virgule  ,"_s), u","_s);
    m_separateur->addItem(LangMsg(u"plugCsvPointVirgule"_s, u"Point-virgule  ;"_s), u";"_s);
    m_separateur->addItem(LangMsg(u"plugCsvTabulation"_s, u"Tabulation"_s), u"\t"_s);
    m_separateur->addItem(LangMsg(u"plugCsvBarre"_s, u"Barre  |"_s), u"|"_s);
    m_separateur->addItem(LangMsg(u"plugCsvAutre"_s, u"Autre"_s), QString());
    m_guillemet->addItem(LangMsg(u"plugCsvDoubles"_s, u"Doubles  \""_s), u"\""_s);
    m_guillemet->addItem(LangMsg(u"plugCsvSimples"_s, u"Simples  '"_s), u"'"_s);
    m_guillemet->addItem(LangMsg(u"plugCsvAucun"_s, u"Aucun"_s), QString());
    m_entete->setText(LangMsg(u"plugCsvEntete"_s, u"La première ligne contient les &titres"_s));
    m_autre->setMaxLength(1);
    m_autre->setMaximumWidth(3 * m_autre->fontMetrics().averageCharWidth() + 24);
    m_autre->setAccessibleName(LangMsg(u"plugCsvAutreNom"_s, u"Autre séparateur"_s));

    auto* choix = new QWidget;
    auto* grille = new QGridLayout(choix);
    grille->setContentsMargins({});
    grille->addWidget(Etiquette(LangMsg(u"plugCsvCodage"_s, u"&Codage :"_s), m_codage), 0, 0);
    grille->addWidget(m_codage, 0, 1);
    grille->addWidget(Etiquette(LangMsg(u"plugCsvSeparateur"_s, u"&Séparateur :"_s), m_separateur), 0, 2);
    auto* separateur = new QHBoxLayout;
    separateur->addWidget(m_separateur, 1);
    separateur->addWidget(m_autre);
    grille->addLayout(separateur, 0, 3);
    grille->addWidget(m_entete, 1, 0, 1, 2);
    grille->addWidget(Etiquette(LangMsg(u"plugCsvGuillemets"_s, u"&Guillemets :"_s), m_guillemet), 1, 2);
    grille->addWidget(m_guillemet, 1, 3);
    grille->setColumnStretch(1, 1);
    grille->setColumnStretch(3, 1);
    // The keys go as the eye does.
    setTabOrder(m_codage, m_separateur);
    setTabOrder(m_separateur, m_autre);
    setTabOrder(m_autre, m_entete);
    setTabOrder(m_entete, m_guillemet);
    return choix;
}

QWidget* frmImporterCsv::ComposerListes()
{
    m_listeColonnes->setModel(&m_colonnes);
    m_listeColonnes->setItemDelegateForColumn(ModeleColonnesCsv::Usage, new DelegueUsageCsv(m_listeColonnes));
    m_listeColonnes->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                                     QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    m_listeColonnes->setSelectionMode(QAbstractItemView::SingleSelection);
    m_listeColonnes->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_listeLignes->setModel(&m_lignes);
    m_listeLignes->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Accommoder(*m_listeColonnes);
    Accommoder(*m_listeLignes);

    auto* listes = new QWidget;
    auto* grille = new QGridLayout(listes);
    grille->setContentsMargins({});
    grille->addWidget(Etiquette(LangMsg(u"plugCsvColonnes"_s, u"C&olonnes :"_s), m_listeColonnes), 0, 0);
    grille->addWidget(Etiquette(LangMsg(u"plugCsvApercu"_s, u"&Aperçu :"_s), m_listeLignes), 0, 1);
    grille->addWidget(m_listeColonnes, 1, 0);
    grille->addWidget(m_listeLignes, 1, 1);
    grille->setColumnStretch(0, 2);
    grille->setColumnStretch(1, 3);
    return listes;
}

void frmImporterCsv::Relier()
{
    connect(m_codage, &QComboBox::currentIndexChanged, this, &frmImporterCsv::ChangerCodage);
    connect(m_separateur, &QComboBox::currentIndexChanged, this, &frmImporterCsv::ChangerFormat);
    connect(m_autre, &QLineEdit::textChanged, this, &frmImporterCsv::ChangerFormat);
    connect(m_guillemet, &QComboBox::currentIndexChanged, this, &frmImporterCsv::ChangerFormat);
    connect(m_entete, &QCheckBox::toggled, this, &frmImporterCsv::ChangerFormat);
    connect(m_listeColonnes, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (index.column() == ModeleColonnesCsv::Usage)
            m_listeColonnes->edit(index);
    });
    connect(&m_colonnes, &QAbstractItemModel::dataChanged, this, [this] {
        m_lignes.MettreColonnes(m_colonnes.Colonnes());
        Juger();
    });
    connect(m_boutons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_boutons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void frmImporterCsv::Montrer(const FormatCsv& format)
{
    m_format = format;
    Choisir(*m_codage, static_cast<int>(format.codage));
    Choisir(*m_separateur, QString(format.separateur));
    Choisir(*m_guillemet, format.guillemet.isNull() ? QString() : QString(format.guillemet));
    const QSignalBlocker muet(m_entete);
    m_entete->setChecked(format.entete);
    m_colonnes.Mettre({});
    Relire();
}

void frmImporterCsv::ChangerCodage()
{
    const auto codage = static_cast<CodageCsv>(m_codage->currentData().toInt());
    if (m_formatChoisi) {
        m_format.codage = codage;
        Relire();
    } else {
        Montrer(DevinerFormat(m_texte, m_extension, codage));
    }
}

void frmImporterCsv::ChangerFormat()
{
    m_formatChoisi = true;
    const QString separateur = m_separateur->currentData().toString();
    const QString voulu = separateur.isEmpty() ? m_autre->text() : separateur;
    m_format.separateur = voulu.isEmpty() ? QChar() : voulu.front();
    const QString guillemet = m_guillemet->currentData().toString();
    m_format.guillemet = guillemet.isEmpty() ? QChar() : guillemet.front();
    m_format.entete = m_entete->isChecked();
    m_colonnes.Mettre({});
    Relire();
}

void frmImporterCsv::Relire()
{
    m_autre->setEnabled(m_separateur->currentData().toString().isEmpty());
    m_apercu = LireApercu(m_texte, m_format);
    const QStringList titres = TitresDeColonnes(m_apercu, m_format.entete);
    const qsizetype images = ColonneDImages(m_apercu, m_format.entete, m_dossier);
    QList<ColonneCsv> colonnes;
    colonnes.reserve(titres.size());
    for (qsizetype i = 0; i < titres.size(); ++i)
        colonnes.append({titres[i], i == images && titres.size() > 1 ? UsageCsv::Image : UsageCsv::Prendre});
    m_colonnes.Mettre(colonnes);
    m_lignes.Mettre(m_apercu, m_format.entete);
    m_lignes.MettreColonnes(colonnes);
    Ajuster(*m_listeLignes);
    Juger();
}

void frmImporterCsv::Juger()
{
    QString note;
    if (m_texte.size() == 0)
        note = LangMsg(u"plugCsvVide"_s, u"Le fichier est vide."_s);
    else if (m_format.separateur.isNull())
        note = LangMsg(u"plugCsvSansSeparateur"_s, u"Tapez le caractère qui sépare les colonnes."_s);
    else if (m_format.separateur == m_format.guillemet)
        note = LangMsg(u"plugCsvMemeCaractere"_s, u"Le séparateur et le guillemet sont le même caractère."_s);
    else if (!m_colonnes.EstUtile())
        note = LangMsg(u"plugCsvSansColonne"_s, u"Aucune colonne n'est prise."_s);
    m_boutons->button(QDialogButtonBox::Ok)->setEnabled(note.isEmpty());
    m_note->setText(note);
}
