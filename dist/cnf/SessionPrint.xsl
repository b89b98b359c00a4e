<?xml version="1.0" encoding="UTF-8"?>
<!-- The running order of a session: each stage's settings and its quests with their songs. Titles come from the
     catalogue beside this file; without it the numbers stand alone. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:include href="Common.xsl"/>
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>
  <xsl:variable name="songs" select="document('ResourceData.xml')/root"/>

  <xsl:template match="/session">
    <html lang="ja">
      <head>
        <title>進行表 <xsl:value-of select="sessionName"/></title>
        <xsl:call-template name="style"/>
      </head>
      <body>
        <h1>進行表　<xsl:value-of select="sessionName"/></h1>
        <p class="summary">
          <xsl:if test="normalize-space(day) != ''"><span>作成日：<xsl:value-of select="day"/></span></xsl:if>
          <span>ステージ数：<xsl:value-of select="count(part)"/></span>
          <span>出題数：<xsl:value-of select="total"/>問</span>
        </p>
        <xsl:apply-templates select="part"/>
      </body>
    </html>
  </xsl:template>

  <xsl:template match="part">
    <h2>第<xsl:value-of select="position()"/>ステージ　<xsl:value-of select="name"/></h2>
    <xsl:call-template name="stageSettings">
      <xsl:with-param name="quests" select="questNum"/>
    </xsl:call-template>
    <xsl:variable name="together">
      <xsl:choose>
        <xsl:when test="multi &gt;= 1 and multi &lt;= 5"><xsl:value-of select="multi"/></xsl:when>
        <xsl:when test="multi &gt; 5">5</xsl:when>
        <xsl:otherwise>1</xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:variable name="before" select="sum(preceding-sibling::part/questNum[. &gt; 0])"/>
    <xsl:choose>
      <xsl:when test="resources/resource">
        <table class="songs">
          <thead><tr><th class="number">問</th><th class="number">NO.</th><th class="title">曲名</th><th>アーティスト</th></tr></thead>
          <tbody>
            <xsl:for-each select="resources/resource">
              <xsl:variable name="place" select="position() - 1"/>
              <xsl:variable name="number" select="number(.)"/>
              <xsl:variable name="song" select="$songs/data[@id = $number]"/>
              <tr>
                <xsl:if test="$place mod $together = 0">
                  <td class="number">
                    <xsl:if test="$together &gt; 1"><xsl:attribute name="rowspan">
                      <xsl:choose>
                        <xsl:when test="last() - $place &lt; $together"><xsl:value-of select="last() - $place"/></xsl:when>
                        <xsl:otherwise><xsl:value-of select="$together"/></xsl:otherwise>
                      </xsl:choose>
                    </xsl:attribute></xsl:if>
                    <xsl:value-of select="$before + floor($place div $together) + 1"/>
                  </td>
                </xsl:if>
                <td class="number"><xsl:value-of select="."/></td>
                <td>
                  <xsl:value-of select="$song/title"/>
                  <xsl:if test="$songs and not($song)"><span class="empty">（一覧にない番号）</span></xsl:if>
                </td>
                <td><xsl:value-of select="$song/artist"/></td>
              </tr>
            </xsl:for-each>
          </tbody>
        </table>
      </xsl:when>
      <xsl:otherwise><p class="empty">楽曲がありません。<xsl:value-of select="resourceId"/></p></xsl:otherwise>
    </xsl:choose>
  </xsl:template>
</xsl:stylesheet>
