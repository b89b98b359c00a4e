<?xml version="1.0" encoding="UTF-8"?>
<!-- What happened in a quiz: the final board, then each stage with the scores after every quest. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:include href="Common.xsl"/>
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>
  <xsl:variable name="users" select="/session/firstUser | /session/secondUser | /session/thirdUser | /session/fourthUser"/>

  <xsl:template match="/session">
    <html lang="ja">
      <head>
        <title>出題の履歴 <xsl:value-of select="@name"/></title>
        <xsl:call-template name="style"/>
      </head>
      <body>
        <h1>出題の履歴　<xsl:value-of select="@name"/></h1>
        <p class="summary">
          <span>開始：<xsl:value-of select="startDateTime"/></span>
          <span>終了：<xsl:value-of select="endDateTime"/></span>
          <span>所要時間：<xsl:value-of select="exhibition"/></span>
          <span>ステージ数：<xsl:value-of select="maxPart"/></span>
          <span>出題数：<xsl:value-of select="total"/>問</span>
        </p>
        <xsl:call-template name="board"/>
        <xsl:apply-templates select="parts/part"/>
      </body>
    </html>
  </xsl:template>

  <xsl:template name="board">
    <xsl:variable name="last" select="(//history)[last()]"/>
    <table class="board">
      <thead><tr><th class="number">順位</th><th>ユーザ</th><th class="number">得点</th></tr></thead>
      <tbody>
        <xsl:for-each select="$users[. != '' or @order &gt; 0]">
          <xsl:sort select="@order" data-type="number"/>
          <!-- The scores are numbered by the users' places, which the elements' names tell. -->
          <xsl:variable name="place" select="boolean(self::firstUser) + 2 * boolean(self::secondUser)
                                             + 3 * boolean(self::thirdUser) + 4 * boolean(self::fourthUser)"/>
          <tr>
            <xsl:if test="@order = 1"><xsl:attribute name="class">winner</xsl:attribute></xsl:if>
            <td class="number"><xsl:if test="@order &gt; 0"><xsl:value-of select="@order"/>位</xsl:if></td>
            <td><xsl:value-of select="."/></td>
            <td class="number"><xsl:value-of select="$last/score[@userId = $place]"/></td>
          </tr>
        </xsl:for-each>
      </tbody>
    </table>
  </xsl:template>

  <xsl:template match="part">
    <h2>第<xsl:value-of select="@seq + 1"/>ステージ　<xsl:value-of select="@name"/></h2>
    <xsl:call-template name="stageSettings">
      <xsl:with-param name="quests" select="questNumber"/>
    </xsl:call-template>
    <xsl:choose>
      <xsl:when test="historys/history">
        <table class="songs">
          <thead>
            <tr>
              <th class="number">問</th><th>正解（曲名 / アーティスト）</th><th class="answerer">解答者</th>
              <xsl:for-each select="$users">
                <th class="score">
                  <xsl:choose>
                    <xsl:when test=". != ''"><xsl:value-of select="."/></xsl:when>
                    <xsl:otherwise>－</xsl:otherwise>
                  </xsl:choose>
                </th>
              </xsl:for-each>
            </tr>
          </thead>
          <tbody><xsl:apply-templates select="historys/history"/></tbody>
        </table>
      </xsl:when>
      <xsl:otherwise><p class="empty">このステージの問題は出題されませんでした。</p></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template match="history">
    <tr>
      <td class="number"><xsl:value-of select="@quest"/></td>
      <td>
        <xsl:call-template name="song"><xsl:with-param name="title" select="title1"/><xsl:with-param name="artist" select="artist1"/></xsl:call-template>
        <xsl:call-template name="song"><xsl:with-param name="title" select="title2"/><xsl:with-param name="artist" select="artist2"/></xsl:call-template>
        <xsl:call-template name="song"><xsl:with-param name="title" select="title3"/><xsl:with-param name="artist" select="artist3"/></xsl:call-template>
        <xsl:call-template name="song"><xsl:with-param name="title" select="title4"/><xsl:with-param name="artist" select="artist4"/></xsl:call-template>
        <xsl:call-template name="song"><xsl:with-param name="title" select="title5"/><xsl:with-param name="artist" select="artist5"/></xsl:call-template>
      </td>
      <td>
        <xsl:attribute name="class">
          <xsl:choose>
            <xsl:when test="result = 1">right</xsl:when>
            <xsl:otherwise>nobody</xsl:otherwise>
          </xsl:choose>
        </xsl:attribute>
        <xsl:value-of select="user"/>
      </td>
      <xsl:for-each select="score">
        <td>
          <xsl:attribute name="class">number<xsl:if test=". &lt; 0"> minus</xsl:if></xsl:attribute>
          <xsl:value-of select="."/>
        </td>
      </xsl:for-each>
    </tr>
  </xsl:template>

  <xsl:template name="song">
    <xsl:param name="title"/>
    <xsl:param name="artist"/>
    <xsl:if test="$title != '' or $artist != ''">
      <div><xsl:value-of select="$title"/><xsl:text> </xsl:text><span class="artist"><xsl:value-of select="$artist"/></span></div>
    </xsl:if>
  </xsl:template>
</xsl:stylesheet>
