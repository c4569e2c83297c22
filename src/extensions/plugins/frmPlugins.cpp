#include "extensions/plugins/frmPlugins.h"

#include "catalogue/documents/FenetreDocument.h"
#include "extensions/langue/LangForm.h"
#include "extensions/plugins/PluginsEnFenetre.h"
#include "extensions/plugins/mPlugin.h"
#include "kit/Icones.h"
#include "ui_frmPlugins.h"

using namespace Qt::StringLiterals;

frmPlugins::frmPlugins(FenetreDocument& fenetre, QWidget* parent)
    : QDialog(parent), m_fenetre(fenetre), m_ui(std::make_unique<Ui::frmPlugins>())
{
    m_ui->setupUi(this);
    m_ui->btLancePlugin->setIcon(Icone(u"ok"_s));
    m_ui->btFermer->setIcon(Icone(u"annuler"_s));
    connect(m_ui->btFermer, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_ui->btLancePlugin, &QPushButton::clicked, this, &frmPlugins::btLancePlugin_Click);
    LangForm(*this);
    connect(m_ui->List1, &QListWidget::currentItemChanged, this, &frmPlugins::List1_Click);
    connect(m_ui->List1, &QListWidget::itemDoubleClicked, this, [this] { m_ui->btLancePlugin->click(); });
    Remplir();
}

frmPlugins::~frmPlugins() = default;

void frmPlugins::Remplir()
{
    for (const QString& fichier : FichiersDePlugins()) {
        EnregistrerDll(CheminDuPlugin(fichier), true);
        if (PluginEstAutre(NomDObjet(fichier)))
            m_ui->List1->addItem(NomDePlugin(fichier));
    }
    m_ui->btLancePlugin->setEnabled(false);
    m_ui->List1->setCurrentRow(0);
}

void frmPlugins::List1_Click(const QListWidgetItem* ligne)
{
    m_ui->Label1->clear();
    m_ui->btLancePlugin->setEnabled(false);
    m_plugin = ligne ? std::make_unique<PluginAuTravail>(ligne->text()) : nullptr;
    if (!m_plugin || !Prendre())
        return;
    m_ui->btLancePlugin->setEnabled(true);
    // The label knows one kind of line end.
    if (std::optional<QString> texte = m_plugin->APropos())
        m_ui->Label1->setText(texte->remove(u'\r'));
}

/// What a plug-in changes as soon as it gets the document is kept, too.
bool frmPlugins::Prendre()
{
    const EtatAvantTravail avant(m_fenetre.myqrt);
    const bool pris = Confier(m_fenetre, *m_plugin);
    if (avant.AChange())
        MontrerChangement(m_fenetre);
    return pris;
}

void frmPlugins::btLancePlugin_Click()
{
    accept();
    const TravailDePlugin travail(m_fenetre);
    m_plugin->showForm();
}
