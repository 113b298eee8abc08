#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <ostream>
#include <string>
#include <vector>

/// What one run of the built program left behind.
struct Outcome {
    int code; ///< exit status; -1 if it did not end by itself
    QByteArray out;
    QByteArray err;
};

/// Ours, but with no screen to open a window on.
QProcessEnvironment withoutDisplay();

/// Runs zelview as a user would and waits for its end. `surroundings` are settings of the environment beside
/// the present ones, each NAME=value.
Outcome runZelview(QStringList const& arguments, QStringList const& surroundings = {});

/// A file among the shared models; empty if they are not at hand.
QString sharedModel(QString const& name);

QString sample(QString const& name);
