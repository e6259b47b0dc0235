#pragma once

#include <QWidget>
#include <memory>

#include "data/fileform.h"

namespace Ui {
class SegParameterWidget;
}

/// The editor of one segment (stitch) welding file.
class SegParameterWidget : public QWidget
{
    Q_OBJECT
public:
    explicit SegParameterWidget(QWidget *parent = nullptr);
    ~SegParameterWidget() override;

    /// Fills the lists, connects, and shows the first file; a second call fills the lists again.
    void init();
    /// Reads the file again and shows it; while it cannot be read the form stays as it is.
    void initPage();

    welmo::FileForm &file() { return *m_file; }

    QString getFileNumber() const;
    /// Chooses the file and shows it; an unknown name is reported and changes nothing.
    void setFileNumber(const QString &name);

    void initParamDefault() { m_file->writeDefaults(); }
    void useDefaultNode() { m_file->useDefaultNode(); }
    void getParam() { m_file->get(); }
    void setParam() { m_file->show(); }
    void storeParam() { m_file->store(); }
    int saveParam() { return m_file->save(); }

public slots:
    void onCbxFileNumberSelectionChanged(int index);
    void onBtnCancelClicked();
    void onBtnSaveClicked();

private:
    void bindFields();
    void initVariant();
    void initUI();
    void initParamValue();

    std::unique_ptr<Ui::SegParameterWidget> ui;
    std::unique_ptr<welmo::FileForm> m_file;
};
