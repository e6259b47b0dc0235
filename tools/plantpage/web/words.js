// Every text of the page in both languages; those of the controllers' reasons come from the server.
export const languages = { en: 'English', zh: '中文' };

const texts = {
    plant: ['Plant', '工厂'],
    cells: ['Cells', '单元'],
    cell: ['Cell', '单元'],
    alarms: ['Alarms', '报警'],
    alarm: ['Alarm', '报警'],
    changes: ['Changes', '更改'],
    day: ['Day', '日期'],
    signIn: ['Sign in', '登录'],
    signOut: ['Sign out', '退出'],
    signInHint: ['With an account of the broker. The page shows the cells that it may read.',
        '使用消息代理的账户。页面显示该账户可读取的单元。'],
    user: ['User', '用户'],
    password: ['Password', '密码'],
    refused: ['Not signed in. The user or the password may be wrong.', '登录失败。用户或密码可能有误。'],
    asking: ['The broker is asked…', '正在询问消息代理…'],
    ended: ['The session has ended.', '会话已结束。'],
    lost: ['No connection to the recorder since %1. The figures are from before; trying again.',
        '%1 起与记录服务断开连接。显示的是之前的数据；正在重试。'],
    brokerLost: ['The recorder has no connection to a broker: %1', '记录服务与消息代理断开：%1'],
    theme: ['Theme: %1', '主题：%1'],
    auto: ['as the system', '跟随系统'],
    light: ['light', '浅色'],
    dark: ['dark', '深色'],
    search: ['Find a cell', '查找单元'],
    onlyAlarms: ['With an alarm', '有报警'],
    noCells: ['No cell to show.', '没有可显示的单元。'],
    noSeams: ['No seam on this day.', '当天没有焊缝。'],
    noAlarms: ['No alarm on this day.', '当天没有报警。'],
    noChanges: ['No change on this day.', '当天没有更改。'],
    seamsByHour: ['Seams by hour', '每小时焊缝'],
    seams: ['Seams', '焊缝'],
    online: ['Online', '在线'],
    state: ['State', '状态'],
    mode: ['Mode', '模式'],
    program: ['Program', '程序'],
    line: ['%1, line %2', '%1，第 %2 行'],
    current: ['Current', '电流'],
    voltage: ['Voltage', '电压'],
    arcTime: ['Arc time', '燃弧时间'],
    wire: ['Wire', '焊丝'],
    time: ['Time', '时间'],
    start: ['Start', '开始'],
    duration: ['Duration', '时长'],
    length: ['Length', '长度'],
    heatInput: ['Heat input', '热输入'],
    file: ['File', '文件'],
    verdict: ['Verdict', '判定'],
    result: ['Ended', '结束'],
    what: ['What changed', '修改内容'],
    seamOf: ['Seam of %1', '%1 的焊缝'],
    openAlarms: ['Open alarms', '未确认报警'],
    unknown: ['State unknown', '状态未知'],
    off: ['Not online', '不在线'],
    idle: ['Idle', '空闲'],
    running: ['Running', '运行中'],
    paused: ['Paused', '已暂停'],
    welding: ['Welding', '焊接中'],
    fault: ['Fault', '故障'],
    real: ['Real welding', '真实焊接'],
    simu: ['Simulation', '仿真'],
    test_run: ['Test run', '试运行'],
    green: ['Good', '合格'],
    amber: ['Check', '注意'],
    red: ['Bad', '不合格'],
    none: ['Not judged', '未判定'],
    regular: ['as programmed', '按程序'],
    stopped: ['stopped before its end', '提前停止'],
    byAlarm: ['by an alarm', '因报警'],
    link_lost: ['link lost', '连接中断'],
    interrupted: ['recording was interrupted', '记录被中断'],
    added: ['set to %1', '设为 %1'],
    removed: ['removed', '已删除'],
};

let language = 'en';

export function setLanguage(name) {
    language = name;
}

export function currentLanguage() {
    return language;
}

/** Puts the arguments in place of %1 and so on. */
export function filled(text, values) {
    return values.reduce((all, value, i) => all.replaceAll(`%${i + 1}`, value), text);
}

/** The text with that name; a name without one is a fault of the page and shows as it is. */
export function word(name, ...values) {
    const both = texts[name];
    return both ? filled(both[language === 'zh' ? 1 : 0], values) : name;
}
