<?xml version="1.0" encoding="UTF-8"?>
<!-- What the three sheets share: the look, the labels of stored numbers, the settings of a stage. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:variable name="ranges">イントロ|サビ|ランダム|メロディ|スタート|エンド|解答|</xsl:variable>
  <xsl:variable name="intervals">激難(250m)|超難(1sec)|難(3sec)|やや難(5sec)|普通(10sec)|易しい(15sec)|レンジフル|∞|</xsl:variable>
  <xsl:variable name="speeds">普通|UP(×2)|HALFUP(×1.5)|DOWN(1/2)|HALFDOWN(1/4)|</xsl:variable>
  <xsl:variable name="fileTypes">MP3|WMA|WAV|NWAV|UNKOWN|MID||</xsl:variable>
  <xsl:variable name="songTypes">N/A|Single|Album|不明|</xsl:variable>

  <!-- The text at a place of a list; a number without a text shows the fallback. -->
  <xsl:template name="label">
    <xsl:param name="list"/>
    <xsl:param name="index"/>
    <xsl:param name="fallback" select="substring-before($list, '|')"/>
    <xsl:choose>
      <xsl:when test="not($index &gt;= 0) or not(contains($list, '|'))"><xsl:value-of select="$fallback"/></xsl:when>
      <xsl:when test="$index = 0"><xsl:value-of select="substring-before($list, '|')"/></xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="label">
          <xsl:with-param name="list" select="substring-after($list, '|')"/>
          <xsl:with-param name="index" select="$index - 1"/>
          <xsl:with-param name="fallback" select="$fallback"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- A false start's price in the words of the host's desk. -->
  <xsl:template name="hands">
    <xsl:choose>
      <xsl:when test="handsType = 0">ステージ中に<xsl:value-of select="handsPenalty"/>回で、このステージはお休み</xsl:when>
      <xsl:when test="handsType = 1">問題中に<xsl:value-of select="handsPenalty"/>回で、この問題はお休み</xsl:when>
      <xsl:when test="handsType = 2">１回でも、次の<xsl:value-of select="handsPenalty"/>問はお休み</xsl:when>
      <xsl:otherwise>なし</xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The settings of the stage that is the current node; session and history name them alike. -->
  <xsl:template name="stageSettings">
    <xsl:param name="quests"/>
    <table class="settings">
      <tr>
        <th>出題数</th><td><xsl:value-of select="$quests"/>問</td>
        <th>再生範囲</th>
        <td>
          <xsl:call-template name="label">
            <xsl:with-param name="list" select="$ranges"/><xsl:with-param name="index" select="number(range)"/>
          </xsl:call-template>
        </td>
        <th>再生時間</th>
        <td>
          <xsl:call-template name="label">
            <xsl:with-param name="list" select="$intervals"/><xsl:with-param name="index" select="number(interval)"/>
          </xsl:call-template>
        </td>
        <th>再生速度</th>
        <td>
          <xsl:call-template name="label">
            <xsl:with-param name="list" select="$speeds"/><xsl:with-param name="index" select="number(speed)"/>
          </xsl:call-template>
        </td>
      </tr>
      <tr>
        <th>同時演奏</th><td><xsl:value-of select="multi"/>曲</td>
        <th>得点</th><td><xsl:value-of select="score"/>点</td>
        <th>失点</th>
        <td>
          <xsl:choose>
            <xsl:when test="deductionPenalty &gt; 0">なし</xsl:when>
            <xsl:otherwise><xsl:value-of select="deductionPenalty"/>点</xsl:otherwise>
          </xsl:choose>
        </td>
        <th>横取り</th>
        <td>
          <xsl:choose>
            <xsl:when test="stealPenalty = 0">指名</xsl:when>
            <xsl:otherwise>なし</xsl:otherwise>
          </xsl:choose>
        </td>
      </tr>
      <tr>
        <th>お手つき</th><td colspan="7"><xsl:call-template name="hands"/></td>
      </tr>
    </table>
  </xsl:template>

  <xsl:template name="style">
    <style type="text/css">
      @page { margin: 14mm 12mm; }
      body { font-family: "ＭＳ Ｐゴシック", "IPAPGothic", "Noto Sans CJK JP", sans-serif; font-size: 10pt; color: #222;
             margin: 0 auto; max-width: 270mm; padding: 6mm; line-height: 1.45; }
      h1 { font-size: 17pt; margin: 0 0 2mm; border-bottom: 2pt solid #1f4e79; padding-bottom: 1.5mm; }
      h2 { font-size: 12pt; margin: 7mm 0 2mm; padding-left: 2.5mm; border-left: 4pt solid #1f4e79;
           page-break-after: avoid; }
      p.summary { margin: 0 0 4mm; color: #555; }
      p.summary span { margin-right: 6mm; white-space: nowrap; }
      table { border-collapse: collapse; width: 100%; }
      thead { display: table-header-group; }
      tr { page-break-inside: avoid; }
      th, td { border: 0.5pt solid #9aa5b1; padding: 1mm 1.8mm; vertical-align: top; text-align: left; }
      thead th { background: #e6edf4; white-space: nowrap; }
      tbody tr:nth-child(even) td { background: #f7f9fb; }
      table.settings { margin-bottom: 2.5mm; page-break-after: avoid; }
      table.settings th { background: #f0f3f6; width: 8%; white-space: nowrap; font-weight: normal; color: #555; }
      table.settings td { background: none !important; width: 17%; }
      table.board { width: auto; margin-bottom: 4mm; }
      table.catalogue { font-size: 8.5pt; }
      table.catalogue th, table.catalogue td { padding: 0.8mm 1.2mm; }
      table.catalogue th.title { width: 26%; }
      table.catalogue th.name { width: 15%; }
      table.songs { table-layout: fixed; word-wrap: break-word; }
      table.songs th.number { width: 10mm; }
      table.songs th.answerer { width: 17%; }
      table.songs th.score { width: 9%; font-size: 9pt; white-space: normal; text-align: right; }
      table.songs th.title { width: 50%; }
      thead th.number, .number { text-align: right; white-space: nowrap; }
      .file { font-size: 8pt; color: #666; word-break: break-all; }
      .artist { color: #666; font-size: 9pt; }
      .winner { font-weight: bold; }
      .right { font-weight: bold; color: #1b6b2f; }
      .nobody { color: #777; }
      .minus { color: #b3261e; }
      .empty { color: #777; }
    </style>
  </xsl:template>
</xsl:stylesheet>
