#pragma once

#include <QWidget>
#include <memory>

#include "data/fileform.h"
#include "schema/filesets.h"

class QPushButton;

namespace welmo {

namespace Ui {
class WeaveEditor;
}

/// The editor of one weave file, with its rules. The weave page and the weave instructions use the
/// same editor; Home says in what they differ.
class WeaveEditor : public QWidget
{
    Q_OBJECT
public:
    struct Home
    {
        /// The set, which gives the defaults of a new file: they differ between the two homes.
        const schema::WeaveSet &set = schema::weave();
        bool titlesAndPictures = true;
    };

    explicit WeaveEditor(QWidget *parent = nullptr);
    ~WeaveEditor() override;

    /// Sets up the controls and shows the first file. @p owner is the sender of reports.
    void initUI(QObject *owner, const Home &home);

    FileForm &file() { return *m_file; }
    void initParamDefault() { m_file->writeDefaults(); }
    void useWeaveDefaultNode() { m_file->useDefaultNode(); }
    void initParamValue() { m_file->start(); }
    void getWeaveParam() { m_file->get(); }
    void setWeaveParam() { m_file->show(); }
    void storeWeaveParam() { m_file->store(); }
    int saveWeaveParam() { return m_file->save(); }
    /// True when the form may be saved; otherwise the reason has been reported.
    bool validateParam();

public slots:
    void onFileNumberChanged(int index);
    void onStandardTypeChanged(int index);
    void onPatternChanged(int index);
    void onElevationTypeChanged(int index);
    void onStayTypeChanged(int index);
    /// Updates the unit of the dwells, which follows reference and dwell type.
    void switchStayTime();
    void onCancelButtonClicked();
    void onSaveButtonClicked();

signals:
    /// Emitted after the file was saved and that was reported.
    void saved();
    /// The edits were dropped.
    void cancelled();

private:
    void bindFields(FieldTable &fields, const schema::WeaveSet &set);
    void initControl(const Home &home);
    void initConnect();
    void forgetOtherAngles();
    void applyRules();
    void hideTitlesAndPictures();

    std::unique_ptr<Ui::WeaveEditor> ui;
    std::unique_ptr<FileForm> m_file;
    QObject *m_owner = nullptr;
    double m_leftElevation = 0; ///< what the boxes held before "V-Pattern" set them to 0
    double m_rightElevation = 0;
    bool m_vPattern = true;
    QString m_anglesOf; ///< the file whose angles are remembered
    int m_standard = -1; ///< the reference for which the length or frequency box is set up
};

} // namespace welmo
