// Precompiled for the libraries and programs with Qt.
#pragma once

#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>
#include <QTreeView>
#include <QUrl>
#include <QWidget>

#include "cmake/pch/logic.h"
