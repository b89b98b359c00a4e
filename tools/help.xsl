<?xml version="1.0" encoding="UTF-8"?>
<!-- Makes the page behind the help button out of the message catalogue:
     xsltproc tools/help.xsl dist/cnf/LogMessage.xml > dist/cnf/Help.html -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>
  <!-- Trace lines are for the log; a host never meets them in a box. -->
  <xsl:variable name="shown" select="/doc/log/message[logging &gt;= 2 and restore != '']"/>

  <xsl:template match="/doc">
    <html lang="ja">
      <head>
        <title>メッセージの説明</title>
        <style type="text/css">
          body { font-family: "IPAPGothic", "Noto Sans CJK JP", sans-serif; max-width: 960px; margin: 2em auto;
                 padding: 0 1em; line-height: 1.6; color: #222; }
          h1 { font-size: 1.5em; border-bottom: 3px solid #1f4e79; }
          table { border-collapse: collapse; width: 100%; }
          th, td { border: 1px solid #9aa5b1; padding: 0.4em 0.7em; text-align: left; vertical-align: top; }
          th { background: #e6edf4; }
          td:first-child { white-space: nowrap; font-weight: bold; }
        </style>
      </head>
      <body>
        <h1>メッセージの説明</h1>
        <p>画面に表示されたコードを探して下さい。「%」で囲んだ所には、その時の値が入ります。</p>
        <table>
          <thead><tr><th>コード</th><th>メッセージ</th><th>対処</th></tr></thead>
          <tbody>
            <xsl:for-each select="$shown">
              <xsl:sort select="@code" data-type="number" order="descending"/>
              <tr id="C{@code}">
                <td>C<xsl:value-of select="@code"/></td>
                <td><xsl:value-of select="contents"/></td>
                <td><xsl:value-of select="restore"/></td>
              </tr>
            </xsl:for-each>
          </tbody>
        </table>
      </body>
    </html>
  </xsl:template>
</xsl:stylesheet>
