<?xml version="1.0" encoding="UTF-8"?>
<!-- The music catalogue as a table. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:include href="Common.xsl"/>
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>

  <xsl:template match="/root">
    <html lang="ja">
      <head>
        <title>音楽ファイルの一覧</title>
        <xsl:call-template name="style"/>
        <style type="text/css">@page { size: A4 landscape; }</style>
      </head>
      <body>
        <h1>音楽ファイルの一覧</h1>
        <p class="summary">
          <span>登録数：<xsl:value-of select="count(data)"/>曲</span>
          <span>最大番号：<xsl:value-of select="maxId"/></span>
          <span>範囲と長さは秒</span>
        </p>
        <table class="catalogue">
          <thead>
            <tr>
              <th class="number">NO.</th><th class="title">曲名 / ファイル名</th><th class="name">アーティスト</th><th>ジャンル</th><th>種別</th><th>形式</th>
              <th class="number">発売日</th><th class="number">長さ</th><th class="number">イントロ</th><th class="number">サビ</th>
              <th class="number">解答</th><th class="number">難易度</th><th class="number">知名度</th>
            </tr>
          </thead>
          <tbody>
            <xsl:apply-templates select="data"/>
          </tbody>
        </table>
      </body>
    </html>
  </xsl:template>

  <xsl:template match="data">
    <!-- Positions count in tenths of a second, of NWAV in whole seconds. -->
    <xsl:variable name="unit">
      <xsl:choose>
        <xsl:when test="fileType = 3">1</xsl:when>
        <xsl:otherwise>10</xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <tr>
      <td class="number"><xsl:value-of select="no"/></td>
      <td>
        <xsl:value-of select="title"/>
        <div class="file"><xsl:value-of select="fileName"/></div>
      </td>
      <td>
        <xsl:value-of select="artist"/>
        <xsl:if test="artistKana != ''"><div class="file"><xsl:value-of select="artistKana"/></div></xsl:if>
      </td>
      <td><xsl:value-of select="genre"/></td>
      <td>
        <xsl:call-template name="label">
          <xsl:with-param name="list" select="$songTypes"/><xsl:with-param name="index" select="number(type)"/>
          <xsl:with-param name="fallback" select="'N/A'"/>
        </xsl:call-template>
      </td>
      <td>
        <xsl:call-template name="label">
          <xsl:with-param name="list" select="$fileTypes"/><xsl:with-param name="index" select="number(fileType)"/>
          <xsl:with-param name="fallback" select="'N/A'"/>
        </xsl:call-template>
      </td>
      <td class="number"><xsl:if test="releaseDate != '0000/00/00'"><xsl:value-of select="releaseDate"/></xsl:if></td>
      <td class="number">
        <xsl:call-template name="seconds">
          <xsl:with-param name="value" select="length"/><xsl:with-param name="unit" select="$unit"/>
        </xsl:call-template>
      </td>
      <xsl:call-template name="span">
        <xsl:with-param name="from" select="introStart"/><xsl:with-param name="to" select="introEnd"/>
        <xsl:with-param name="unit" select="$unit"/>
      </xsl:call-template>
      <xsl:call-template name="span">
        <xsl:with-param name="from" select="sabiStart"/><xsl:with-param name="to" select="sabiEnd"/>
        <xsl:with-param name="unit" select="$unit"/>
      </xsl:call-template>
      <xsl:call-template name="span">
        <xsl:with-param name="from" select="ansStart"/><xsl:with-param name="to" select="ansEnd"/>
        <xsl:with-param name="unit" select="$unit"/>
      </xsl:call-template>
      <td class="number"><xsl:if test="deficalt &gt;= 0"><xsl:value-of select="deficalt"/></xsl:if></td>
      <td class="number"><xsl:if test="famous &gt;= 0"><xsl:value-of select="famous"/></xsl:if></td>
    </tr>
  </xsl:template>

  <xsl:template name="seconds">
    <xsl:param name="value"/>
    <xsl:param name="unit"/>
    <xsl:if test="$value &gt;= 0"><xsl:value-of select="format-number($value div $unit, '0.0')"/></xsl:if>
  </xsl:template>

  <!-- A span that plays; an empty one shows nothing. -->
  <xsl:template name="span">
    <xsl:param name="from"/>
    <xsl:param name="to"/>
    <xsl:param name="unit"/>
    <td class="number">
      <xsl:if test="$to &gt; $from">
        <xsl:call-template name="seconds">
          <xsl:with-param name="value" select="$from"/><xsl:with-param name="unit" select="$unit"/>
        </xsl:call-template>
        <xsl:text>～</xsl:text>
        <xsl:call-template name="seconds">
          <xsl:with-param name="value" select="$to"/><xsl:with-param name="unit" select="$unit"/>
        </xsl:call-template>
      </xsl:if>
    </td>
  </xsl:template>
</xsl:stylesheet>
