// The heading and the picture of printed pages. What is set here is kept whichever way the dialog is closed.
#pragma once

#include "output/OptionsDImpression.h"

#include <QDialog>
#include <QImage>

#include <memory>

namespace Ui {
class frmPrintOptions;
}

/// The picture that is printed unless there is one of the user's.
QImage ImageDEnteteParDefaut();
/// The user's; null where there is none that can be shown.
QImage ImageDEntete(const OptionsDImpression& options);

class frmPrintOptions : public QDialog
{
    Q_OBJECT

public:
    explicit frmPrintOptions(const QString& dossier, QWidget* parent = nullptr);
    ~frmPrintOptions() override;

    /// The heading's template, and what stands for "%titre%" in it.
    void MettreTextes(const QString& texte, const QString& titre);
    QString Texte() const;
    QString Titre() const;

    bool ImageAffichee() const;
    /// The picture that is shown; null for none.
    const QImage& Image() const { return m_image; }

    void done(int issue) override;

private:
    void ChoisirParDefaut(bool parDefaut);
    void MontrerImage();
    void Parcourir();

    std::unique_ptr<Ui::frmPrintOptions> m_ui;
    OptionsDImpression m_options;
    QImage m_image;
};
