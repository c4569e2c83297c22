// What both plug-ins of this folder have in common.
#pragma once

#include "Fin.h"

#include <QObject>
#include <QString>

class Exporteur : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString ExportFilter READ ExportFilter CONSTANT)

public:
    Q_INVOKABLE void WhatIsIt(QString& genres) const;
    Q_INVOKABLE void initme(QObject* document, int fenetre);
    /// Throws what the user is told where the file could not be written. Nothing is told of what he gave up.
    Q_INVOKABLE void ExportToFile(const QString& chemin);

    virtual QString ExportFilter() const = 0;

protected:
    QObject* Document() const { return m_document; }
    virtual Fin Ecrire(const QString& chemin, Progression& progression) = 0;

private:
    QObject* m_document = nullptr;
};

/// One type of the export dialog: a label and a pattern.
QString FiltreDExport(QString etiquette, const QString& motif);
